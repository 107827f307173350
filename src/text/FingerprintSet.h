#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "text/Fingerprint.h"

namespace norvo {

/// Finds numbers by fingerprints. All stands in one array, probed in a row, so that a question
/// mostly touches one place in memory; for large collections that is what it costs.
class FingerprintIndex {
 public:
  std::optional<std::uint32_t> Find(const Fingerprint& print) const noexcept;
  /// False, with nothing changed, when the fingerprint is there already.
  bool Insert(const Fingerprint& print, std::uint32_t number);
  std::size_t Size() const noexcept { return size_; }
  void Clear();

 private:
  struct Slot {
    Fingerprint print;
    std::uint32_t number = 0;
    bool used = false;
  };

  /// The print's slot, or the free one where it belongs. There must be a free one.
  std::size_t Place(const Fingerprint& print) const noexcept;
  void Grow();

  std::vector<Slot> slots_;  // as many as a power of two
  std::size_t size_ = 0;
};

}  // namespace norvo

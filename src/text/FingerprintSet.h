#pragma once

#include <cstddef>
#include <deque>

#include "text/Fingerprint.h"
#include "text/PositionTable.h"

namespace norvo {

/// Fingerprints without repetition. Takes 21 to 27 bytes for each, and copies none as it grows.
class FingerprintSet {
 public:
  bool Has(const Fingerprint& print) const noexcept;
  /// False, with nothing changed, when the fingerprint is there already.
  bool Insert(const Fingerprint& print);
  std::size_t Size() const noexcept { return prints_.size(); }
  void Clear() noexcept;

 private:
  std::deque<Fingerprint> prints_;
  PositionTable places_;
};

}  // namespace norvo

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

#include "text/Text.h"

namespace norvo {

/// So many texts that belong together, in one piece of memory: a thing with a dozen short texts
/// costs one allocation instead of a dozen, and a third of the room. A text that is a part of
/// another one can stand within it.
template <std::size_t kCount>
class PackedTexts {
 public:
  /// The text at a 0-based place; the view holds until the next `Set`.
  StringView At(std::size_t i) const {
    return StringView(units_).substr(places_[i].start, places_[i].length);
  }

  /// False when no text has a unit below the blank.
  bool MayHaveControls() const { return mayHaveControls_; }

  /// `text` may be a view of what is held here.
  void Set(std::size_t i, StringView text) {
    mayHaveControls_ = mayHaveControls_ || HasControls(text);
    Place& place = places_[i];
    if (text.size() <= place.length && !hasParts_) {
      StringView::traits_type::move(units_.data() + place.start, text.data(), text.size());
    } else if (text.size() <= units_.capacity() - units_.size()) {
      place.start = static_cast<std::uint32_t>(units_.size());
      units_.append(text);
    } else {
      SetAnew(i, text);
    }
    place.length = static_cast<std::uint32_t>(text.size());
  }

  /// The same, without room of its own when the text at `whole` begins or ends so.
  void SetAsPart(std::size_t i, StringView text, std::size_t whole) {
    const StringView other = At(whole);
    if (text.empty() || text.size() > other.size()) return Set(i, text);
    const std::size_t behind = other.size() - text.size();
    if (SameUnits(other.substr(behind), text)) {
      SetPart(i, text.size(), places_[whole].start + behind);
    } else if (SameUnits(other.substr(0, text.size()), text)) {
      SetPart(i, text.size(), places_[whole].start);
    } else {
      Set(i, text);
    }
  }

  /// Makes room for texts of so many units in all.
  void Reserve(std::size_t units) { units_.reserve(units); }

 private:
  struct Place {
    std::uint32_t start = 0;
    std::uint32_t length = 0;
  };

  /// Controls were looked for when the whole was set.
  void SetPart(std::size_t i, std::size_t length, std::size_t start) {
    places_[i] = {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(length)};
    hasParts_ = true;
  }

  /// Without room: all others, and this one behind them. What was replaced is left out, unless the
  /// parts that stand within others save more than it takes.
  void SetAnew(std::size_t i, StringView text) {
    std::size_t needed = text.size();
    for (std::size_t k = 0; k < kCount; ++k) needed += k == i ? 0 : places_[k].length;
    if (needed > UINT32_MAX / 2) throw std::length_error("texts too long");
    const bool sharesMore = units_.size() + text.size() <= needed;
    if (sharesMore) needed = units_.size() + text.size();
    String units;
    units.reserve(needed + needed / 4);
    std::array<Place, kCount> places = places_;
    if (sharesMore) {
      units.append(units_);
    } else {
      for (std::size_t k = 0; k < kCount; ++k) {
        if (k == i) continue;
        places[k].start = static_cast<std::uint32_t>(units.size());
        units.append(At(k));
      }
      hasParts_ = false;
    }
    places[i].start = static_cast<std::uint32_t>(units.size());
    units.append(text);
    units_.swap(units);
    places_ = places;
  }

  String units_;
  std::array<Place, kCount> places_{};
  bool mayHaveControls_ = false;
  bool hasParts_ = false;  // then nothing is written over
};

}  // namespace norvo

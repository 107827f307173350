#include "text/FingerprintSet.h"

namespace norvo {

bool FingerprintSet::Has(const Fingerprint& print) const noexcept {
  return places_.Find(print.first, [&](std::size_t at) { return prints_[at] == print; })
      .has_value();
}

bool FingerprintSet::Insert(const Fingerprint& print) {
  if (Has(print)) return false;
  places_.Reserve(prints_.size() + 1, [this](std::size_t at) { return prints_[at].first; });
  prints_.push_back(print);
  places_.Add(prints_.size() - 1, print.first);
  return true;
}

void FingerprintSet::Clear() noexcept {
  prints_.clear();
  places_.Clear();
}

}  // namespace norvo

#pragma once

#include "services/Platform.h"

namespace norvo {

/// The product's facts, from the registry: the current user's key goes before the machine's.
class WindowsProduct final : public ProductInformation {
 public:
  /// `registry` must outlive this.
  explicit WindowsProduct(Registry& registry) : registry_(registry) {}
  String BaseKey() override;
  /// Without an entry in the registry: the folder of the program or library that this code is in.
  String Folder() override;
  String Name() override;

 private:
  Registry& registry_;
};

}  // namespace norvo

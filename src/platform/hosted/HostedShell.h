#pragma once

#include <map>

#include "services/Platform.h"

namespace norvo {

/// The special folders that the machine's layout names.
class HostedShell final : public ShellFolders {
 public:
  explicit HostedShell(std::map<std::int32_t, String> folders) : folders_(std::move(folders)) {}
  /// Nothing: a machine in a folder has no such function.
  std::optional<Answer> FolderPath(std::int32_t identifierAndFlags) override;
  String SpecialFolderPath(std::int32_t identifier) override;

 private:
  std::map<std::int32_t, String> folders_;
};

/// The product's facts, from the machine's registry.
class HostedProduct final : public ProductInformation {
 public:
  /// `registry` must outlive this.
  explicit HostedProduct(Registry& registry) : registry_(registry) {}
  String BaseKey() override;
  String Folder() override;
  String Name() override;

 private:
  Registry& registry_;
};

}  // namespace norvo

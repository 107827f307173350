#pragma once

#include "services/IniDocument.h"
#include "services/Platform.h"

namespace norvo {

/// The special folders that the machine's settings name.
class HostedShell final : public ShellFolders {
 public:
  /// `settings` must outlive this.
  explicit HostedShell(const IniDocument& settings) : settings_(settings) {}
  /// Nothing: a machine in a folder has no such function.
  std::optional<Answer> FolderPath(std::int32_t identifierAndFlags) override;
  String SpecialFolderPath(std::int32_t identifier) override;

 private:
  const IniDocument& settings_;
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

#pragma once

#include "overlay/OverlayFiles.h"

namespace norvo {

/// The shell of the machine below, which is never made to create a folder: it is created in the
/// overlay's files instead.
class OverlayShell final : public ShellFolders {
 public:
  /// Both must outlive this.
  OverlayShell(Platform& below, OverlayFiles& files) : below_(below), files_(files) {}

  std::optional<Answer> FolderPath(std::int32_t identifierAndFlags) override;
  String SpecialFolderPath(std::int32_t identifier) override;

 private:
  bool Create(StringView path);

  Platform& below_;
  OverlayFiles& files_;
};

/// The facts of the machine below; folder and name that were written to the registry hold.
class OverlayProduct final : public ProductInformation {
 public:
  /// `registry` is the overlay's. Both must outlive this.
  OverlayProduct(Platform& below, Registry& registry) : below_(below), registry_(registry) {}

  String BaseKey() override { return below_.Product().BaseKey(); }
  String Folder() override;
  String Name() override;

 private:
  Platform& below_;
  Registry& registry_;
};

/// Takes every record and keeps none.
class ForgetfulMigrationList final : public MigrationList {
 public:
  bool EnsureGroup(StringView, StringView) override { return true; }
  bool Add(const MediaRecord&) override { return true; }
  bool Flush() override { return true; }
};

}  // namespace norvo

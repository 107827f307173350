#pragma once

#include <memory>

#include "move/WorkReport.h"
#include "services/Component.h"
#include "services/WarningSink.h"

namespace norvo {

/// What a machine's platform tells of its own accord, as a warning.
WorkWarning WarningOf(MachineSide side, StringView line, WarningWeight weight);

/// The component over one machine for the length of a call. What the machine's platform finds odd
/// goes to the log and to the report.
class OpenedLibrary {
 public:
  /// `report` must outlive this.
  OpenedLibrary(std::shared_ptr<Platform> machine, MachineSide side, WorkReport& report);
  ~OpenedLibrary();
  OpenedLibrary(const OpenedLibrary&) = delete;
  OpenedLibrary& operator=(const OpenedLibrary&) = delete;

  Component& Get() { return *component_; }
  const std::shared_ptr<Platform>& Machine() { return machine_; }

  /// Turns the debug log on and tells where it is; gives none when it cannot be written, which is
  /// warned of.
  LogFile StartLog();

 private:
  LogFile LogInto(const String& path);

  std::shared_ptr<Platform> machine_;
  MachineSide side_;
  WorkReport& report_;
  std::unique_ptr<Component> component_;
};

}  // namespace norvo

#include "move/OpenedLibrary.h"

#include <utility>
#include <vector>

#include "automation/RunTimeError.h"
#include "library/Library.h"
#include "services/Logging.h"
#include "services/Utility.h"

namespace norvo {

WorkWarning WarningOf(MachineSide side, StringView line, WarningWeight weight) {
  WorkWarning warning;
  warning.kind = weight == WarningWeight::Notice ? WorkWarning::Kind::LinkNotFollowed
                                                 : WorkWarning::Kind::Oddity;
  warning.side = side;
  warning.warning.text = line;
  return warning;
}

OpenedLibrary::OpenedLibrary(std::shared_ptr<Platform> machine, MachineSide side,
                             WorkReport& report)
    : machine_(std::move(machine)), side_(side), report_(report) {
  // What the opening of the machine has to tell comes before there is a log.
  std::vector<std::pair<String, WarningWeight>> early;
  machine_->SetWarningSink(
      [&early](StringView line, WarningWeight weight) { early.emplace_back(line, weight); });
  component_ = OpenLibrary(machine_);
  const auto tell = [this](StringView line, WarningWeight weight) {
    WriteLog(*component_, line);
    report_.Warn(WarningOf(side_, line, weight));
  };
  machine_->SetWarningSink(tell);
  for (const auto& [line, weight] : early) tell(line, weight);
}

OpenedLibrary::~OpenedLibrary() {
  machine_->SetWarningSink({});
}

LogFile OpenedLibrary::StartLog() {
  component_->SetLogMode(log_mode::kFile);
  const String folder = machine_->Product().Folder();
  const String path = Utility::AddBackslash(folder) + u"VBLog.txt";
  WorkWarning warning;
  warning.side = side_;
  warning.subject = folder;
  try {
    if (machine_->Files().FolderExists(folder)) return LogInto(path);
    warning.kind = WorkWarning::Kind::NoLogFolder;
  } catch (const RunTimeError& failure) {
    warning.kind = WorkWarning::Kind::LogNotWritten;
    warning.subject = path;
    warning.detail = failure.Description();
  }
  report_.Warn(std::move(warning));
  return {};
}

/// Raises when no line can be written there. The file stands even where no line comes.
LogFile OpenedLibrary::LogInto(const String& path) {
  machine_->Files().OpenForAppending(path, true);
  LogFile file{path, machine_->SystemPathOf(path)};
  report_.Observer().OnLog(side_, file);
  return file;
}

}  // namespace norvo

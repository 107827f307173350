#include "services/Logging.h"

#include "automation/Attempt.h"
#include "services/TextStream.h"

namespace norvo {
namespace {

constexpr StringView kDebugKey = u"Software\\Norvo\\Debug";
constexpr StringView kDebugSwitch = u"VBDebugOut";
constexpr StringView kLogFile = u"VBLog.txt";

void LoadProductFacts(Component& component) {
  LogState& log = component.Log();
  if (!log.productBaseKey.empty()) return;
  ProductInformation& product = component.Machine().Product();
  // The base key is set last: should one of the three fail, the next call tries again.
  String baseKey = product.BaseKey();
  log.productFolder = product.Folder();
  log.productName = product.Name();
  log.debugKey = kDebugKey;
  log.productBaseKey = std::move(baseKey);
}

void LoadSwitch(Component& component) {
  LogState& log = component.Log();
  if (log.loaded) return;
  RegistryKey key(component.Machine().Registry());
  key.Open(log.debugKey);
  key.Read(kDebugSwitch, log.mode);  // a missing key or value leaves mode 0
  log.loaded = true;
}

void Deliver(Component& component, StringView message) {
  const LogState& log = component.Log();
  if (log.mode == log_mode::kMessageBox) {
    component.Machine().Messages().Show({}, message);
  } else if (log.mode == log_mode::kFile) {
    // Opened and closed for every line, so that each reaches the disk at once and others may read
    // or rotate the file in between.
    TextWriter file(component.Files(), log.productFolder + String(kLogFile), true,
                    component.Machine().AnsiPage());
    file.WriteLine(message);
    file.Close();
  }
}

/// No caller ever receives an error from logging.
void TryToDeliver(Component& component, StringView message) {
  Attempt([&] {
    LoadProductFacts(component);
    LoadSwitch(component);
    Deliver(component, message);
  });
}

}  // namespace

void WriteLog(Component& component, StringView message) {
  component.Watcher().OnLogLine(message);
  TryToDeliver(component, message);
}

void WriteWarning(Component& component, const Warning& warning) {
  component.Watcher().OnLogLine(warning.text);
  component.Watcher().OnWarning(warning);
  TryToDeliver(component, warning.text);
}

void WriteWarning(Component& component, const WarningStart& start, StringView reason) {
  WriteWarning(component,
               {start.kind, String(start.path), String(reason), String(start.text).append(reason)});
}

}  // namespace norvo

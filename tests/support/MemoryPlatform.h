#pragma once

#include <map>
#include <string>
#include <vector>

#include "services/FolderScanner.h"
#include "services/Platform.h"
#include "support/CallLog.h"
#include "support/MemoryFiles.h"
#include "support/MemoryRegistry.h"
#include "support/MemoryServices.h"

namespace norvo {

/// A whole machine in memory: one fixed drive C, an empty registry, the documents folder
/// "C:\My Documents". Every operation that the library asks of it is counted, and can be made to
/// raise. Operations go by the names of their functions; those of other services than the file
/// system have the service before a point: "FactsOf", "ReadAt", "Append", "Settings.Read",
/// "Registry.KeyExists", "Shell.FolderPath", "Product.BaseKey", "Migration.Add", "Messages.Show",
/// and "Scanner" for the creation of the drive scanner.
class MemoryPlatform final : public Platform {
 public:
  enum class ScannerKind { Working, Absent, Raising };

  MemoryPlatform();

  // Setting up and looking; neither counted nor made to fail.

  /// Product keys, product folder, group root, sub-names and group key, as an installed product
  /// has them.
  void ConfigureProduct();
  void AddDrive(char16_t letter, DriveType type) { files_.AddDrive(letter, type); }
  void AddFile(StringView path, std::string_view bytes, FileTime created = kUsualFileTime) {
    files_.AddFile(path, bytes, created);
  }
  void AddFolder(StringView path) { files_.AddFolder(path); }
  const std::string& Bytes(StringView path) const { return files_.Bytes(path); }
  bool HasFile(StringView path) const { return files_.HasFile(path); }
  bool HasFolder(StringView path) const { return files_.HasFolder(path); }
  void SetRegistry(Hive hive, StringView key, StringView name, const RegistryValue& value) {
    registry_.Set(hive, key, name, value);
  }
  void SetScanner(ScannerKind kind) { scannerKind_ = kind; }
  const std::vector<MediaRecord>& Records() const { return migration_.Records(); }

  // Failures; see CallLog. k counts from 1, from the call of these on.

  void FailAt(std::size_t k, std::int32_t number) { calls_.FailAt(k, number); }
  void FailOn(StringView operation, std::size_t k, std::int32_t number) {
    calls_.FailOn(operation, k, number);
  }
  const std::map<String, std::size_t, std::less<>>& Calls() const { return calls_.Counts(); }
  std::size_t Calls(StringView operation) const { return calls_.Count(operation); }
  const std::vector<String>& Trace() const { return calls_.Trace(); }
  /// The counters and the failures themselves.
  CallLog& Log() { return calls_; }

  MemoryFiles& Files() override { return files_; }
  MemoryRegistry& Registry() override { return registry_; }
  MemoryShell& Shell() override { return shell_; }
  MemoryProduct& Product() override { return product_; }
  SettingsStorage& Settings() override { return files_; }
  RecordingMigrationList& Migration() override { return migration_; }
  DriveScanner* Scanner() override;
  RecordingMessageBox& Messages() override { return messages_; }
  const CodePage& AnsiPage() override { return Windows1252(); }

 private:
  CallLog calls_;
  MemoryFiles files_;
  MemoryRegistry registry_;
  MemoryShell shell_;
  MemoryProduct product_;
  RecordingMigrationList migration_;
  RecordingMessageBox messages_;
  FolderScanner scanner_;
  ScannerKind scannerKind_ = ScannerKind::Working;
};

/// Names of the product that ConfigureProduct installs.
inline constexpr StringView kBaseKey = u"SOFTWARE\\Norvo\\Migration";
inline constexpr StringView kGroupRoot = u"C:\\My Documents\\Norvo Media\\";
inline constexpr StringView kDebugKey = u"Software\\Norvo\\Debug";

}  // namespace norvo

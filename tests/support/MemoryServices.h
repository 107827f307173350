#pragma once

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "services/Platform.h"
#include "support/CallLog.h"

namespace norvo {

/// Shell folders by identifier. Without further setting both calls give the documents folder.
class MemoryShell final : public ShellFolders {
 public:
  explicit MemoryShell(CallLog& calls) : calls_(calls) {}

  /// The answer of both calls.
  void SetFolder(std::int32_t identifier, StringView path);
  /// The answer of the older call alone.
  void SetSpecialFolder(std::int32_t identifier, StringView path);
  /// The answer of the newer call, whatever it is asked; nothing for a system without it.
  void SetAnswer(std::optional<Answer> answer);

  std::optional<Answer> FolderPath(std::int32_t identifierAndFlags) override;
  String SpecialFolderPath(std::int32_t identifier) override;

 private:
  CallLog& calls_;
  std::map<std::int32_t, String> folders_{{5, u"C:\\My Documents"}};
  std::map<std::int32_t, String> specialFolders_{{5, u"C:\\My Documents"}};
  std::optional<Answer> answer_;
  bool answers_ = false;  // answer_ holds
};

class MemoryProduct final : public ProductInformation {
 public:
  explicit MemoryProduct(CallLog& calls) : calls_(calls) {}

  void SetBaseKey(StringView key) { baseKey_ = key; }
  void SetFolder(StringView folder) { folder_ = folder; }

  String BaseKey() override;
  String Folder() override;
  String Name() override;

 private:
  CallLog& calls_;
  String baseKey_ = u"SOFTWARE\\Norvo\\Migration";
  String folder_ = u"C:\\Norvo\\";
};

/// A migration list that keeps its records for the test to look at.
class RecordingMigrationList final : public MigrationList {
 public:
  explicit RecordingMigrationList(CallLog& calls) : calls_(calls) {}

  /// Every group is refused from now on.
  void RefuseGroups() { refuses_ = true; }
  const std::vector<MediaRecord>& Records() const { return records_; }
  /// Records that the last flush made durable.
  std::size_t DurableRecords() const { return durable_; }

  bool EnsureGroup(StringView group, StringView root) override;
  bool Add(const MediaRecord& record) override;
  bool Flush() override;

 private:
  CallLog& calls_;
  bool refuses_ = false;
  String root_;
  std::set<String> known_;  // folded root, source and destination
  std::vector<MediaRecord> records_;
  std::size_t durable_ = 0;
};

/// Notes what would have been shown.
class RecordingMessageBox final : public MessageDialog {
 public:
  explicit RecordingMessageBox(CallLog& calls) : calls_(calls) {}

  /// Title and text of each message, in order.
  const std::vector<std::pair<String, String>>& Shown() const { return shown_; }

  void Show(StringView title, StringView text) override;

 private:
  CallLog& calls_;
  std::vector<std::pair<String, String>> shown_;
};

}  // namespace norvo

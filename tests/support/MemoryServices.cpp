#include "support/MemoryServices.h"

#include "text/Number.h"

namespace norvo {

void MemoryShell::SetFolder(std::int32_t identifier, StringView path) {
  folders_[identifier] = path;
  specialFolders_[identifier] = path;
}

void MemoryShell::SetSpecialFolder(std::int32_t identifier, StringView path) {
  specialFolders_[identifier] = path;
}

void MemoryShell::SetAnswer(std::optional<Answer> answer) {
  answer_ = std::move(answer);
  answers_ = true;
}

std::optional<ShellFolders::Answer> MemoryShell::FolderPath(std::int32_t identifierAndFlags) {
  calls_.Enter(u"Shell.FolderPath", FormatInteger(identifierAndFlags));
  if (answers_) return answer_;
  const auto found = folders_.find(identifierAndFlags & ~kCreateFlag);
  if (found == folders_.end()) return Answer{kInvalidArgumentStatus, {}};
  return Answer{0, found->second};
}

String MemoryShell::SpecialFolderPath(std::int32_t identifier) {
  calls_.Enter(u"Shell.SpecialFolderPath", FormatInteger(identifier));
  const auto found = specialFolders_.find(identifier);
  return found == specialFolders_.end() ? String() : found->second;
}

String MemoryProduct::BaseKey() {
  calls_.Enter(u"Product.BaseKey");
  return baseKey_;
}

String MemoryProduct::Folder() {
  calls_.Enter(u"Product.Folder");
  return folder_;
}

String MemoryProduct::Name() {
  calls_.Enter(u"Product.Name");
  return u"Norvo";
}

bool RecordingMigrationList::EnsureGroup(StringView group, StringView root) {
  calls_.Enter(u"Migration.EnsureGroup", root);
  if (refuses_ || group.empty() || root.empty()) return false;
  root_ = root;
  return true;
}

bool RecordingMigrationList::Add(const MediaRecord& record) {
  calls_.Enter(u"Migration.Add", record.source);
  if (refuses_ || root_.empty()) return false;
  const bool isNew =
      known_.insert(Fold(root_ + u"\t" + record.source + u"\t" + record.destination)).second;
  if (isNew) records_.push_back(record);
  return true;
}

bool RecordingMigrationList::Flush() {
  calls_.Enter(u"Migration.Flush");
  durable_ = records_.size();
  return true;
}

void RecordingMessageBox::Show(StringView title, StringView text) {
  calls_.Enter(u"Messages.Show", text);
  shown_.emplace_back(title, text);
}

}  // namespace norvo

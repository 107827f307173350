#include "move/WatchedMachine.h"

#include <utility>

#include "automation/RunTimeError.h"

namespace norvo {

std::unique_ptr<BinaryFile> WatchedMachine::WatchedFiles::OpenForReading(StringView path) {
  try {
    return ForwardedFiles::OpenForReading(path);
  } catch (const RunTimeError& failure) {
    const bool isMissing =
        failure.Number() == error::kFileNotFound || failure.Number() == error::kPathNotFound;
    if (!isMissing) unread_.try_emplace(String(path), failure.Description());
    throw;
  }
}

std::optional<String> WatchedMachine::WatchedFiles::TakeUnread(StringView path) {
  const auto found = unread_.find(String(path));
  // What is told stays, with nothing to tell, so that the next failure is not told again.
  if (found == unread_.end() || found->second.empty()) return std::nullopt;
  return std::exchange(found->second, {});
}

std::string WatchedMachine::WatchedPage::Encode(StringView text) const {
  if (std::optional<std::string> bytes = page_.EncodeFitting(text)) return *std::move(bytes);
  ++replaced_;
  return page_.Encode(text);
}

}  // namespace norvo

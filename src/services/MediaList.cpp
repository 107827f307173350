#include "services/MediaList.h"

#include "automation/RunTimeError.h"
#include "services/ProfileFile.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr char kSeparator = '\t';  // no Windows path holds one

void Mix(StringView text, std::uint64_t& first, std::uint64_t& second) {
  for (const char16_t unit : text) {
    const std::uint64_t upper = ToUpper(unit);
    first = (first ^ upper) * 0x9E3779B97F4A7C15u;
    second = (second + upper + 1) * 0xD6E8FEB86659FD93u;
    second ^= second >> 32;
  }
}

}  // namespace

MediaList::Fingerprint MediaList::PrintOf(StringView source, StringView destination) {
  Fingerprint print{0x243F6A8885A308D3u, 0x13198A2E03707344u};
  Mix(source, print.first, print.second);
  Mix(u"\t", print.first, print.second);
  Mix(destination, print.first, print.second);
  print.first ^= print.first >> 29;
  return print;
}

bool MediaList::EnsureGroup(StringView group, StringView root) {
  if (group.empty() || root.empty()) return false;
  if (root == root_) return true;
  Flush();
  root_ = root;
  path_ = DataArea(root) + u"MediaList.txt";
  Load();
  return true;
}

void MediaList::Load() {
  known_.clear();
  pending_.clear();
  const std::optional<std::string> bytes = storage_.Read(path_);
  exists_ = bytes.has_value();
  endsTorn_ = exists_ && !bytes->empty() && !bytes->ends_with('\n');
  if (!bytes) return;
  std::string_view rest = *bytes;
  if (rest.starts_with(kMark)) rest.remove_prefix(kMark.size());
  for (std::size_t end = rest.find("\r\n"); end != std::string_view::npos;
       end = rest.find("\r\n")) {
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end + 2);
    const std::size_t first = line.find(kSeparator);
    const std::size_t second = line.find(kSeparator, first + 1);
    if (first == std::string_view::npos || second == std::string_view::npos) continue;
    known_.insert(PrintOf(FromUtf8Lossy(line.substr(first + 1, second - first - 1)),
                          FromUtf8Lossy(line.substr(second + 1))));
  }
}

bool MediaList::Add(const MediaRecord& record) {
  if (path_.empty()) return false;
  if (!known_.insert(PrintOf(record.source, record.destination)).second) return true;
  AppendUtf8(pending_, record.category);
  pending_ += kSeparator;
  AppendUtf8(pending_, record.source);
  pending_ += kSeparator;
  AppendUtf8(pending_, record.destination);
  pending_ += "\r\n";
  return true;
}

bool MediaList::Flush() {
  if (pending_.empty()) return true;
  try {
    if (!exists_) {
      storage_.Write(path_, std::string(kMark) + pending_);
    } else {
      const std::unique_ptr<AppendFile> file = files_.OpenForAppending(path_, true);
      file->Append(endsTorn_ ? "\r\n" + pending_ : pending_);
    }
  } catch (const RunTimeError&) {
    endsTorn_ = endsTorn_ || exists_;  // a part of the lines may have reached the file
    return false;
  }
  exists_ = true;
  endsTorn_ = false;
  pending_.clear();
  return true;
}

}  // namespace norvo

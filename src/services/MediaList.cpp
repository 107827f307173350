#include "services/MediaList.h"

#include <algorithm>

#include "automation/RunTimeError.h"
#include "services/ProfileFile.h"
#include "text/Encoding.h"
#include "text/Utf16.h"

namespace norvo {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
constexpr char kSeparator = '\t';

/// True for a text that a field holds as it is, in ASCII characters.
bool IsPlain(StringView text) {
  unsigned others = 0;
  for (const char16_t unit : text) others |= static_cast<unsigned>(unit < u' ') | unit >> 7;
  return others == 0;
}

/// The text as a field of a line can hold it. A destination carries names out of tags, which may
/// hold anything: a control character, a line end among them, becomes a blank, and half a
/// character the replacement character, which is what it would be when the file is read again.
class Field {
 public:
  explicit Field(StringView text) : text_(text) {
    if (IsPlain(text)) return;
    made_ = text;
    for (std::size_t i = 0; i < made_.size(); ++i) {
      if (IsAsciiControl(made_[i])) {
        made_[i] = u' ';
      } else if (IsPairAt(made_, i)) {
        ++i;
      } else if (IsSurrogate(made_[i])) {
        made_[i] = kReplacementCharacter;
      }
    }
    text_ = made_;
  }
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  StringView Text() const { return text_; }

 private:
  String made_;  // only of a text that is not plain
  StringView text_;
};

}  // namespace

Fingerprint MediaList::PrintOf(StringView source, StringView destination) {
  return FingerprintOf({CaselessFingerprintOf(source), CaselessFingerprintOf(destination)});
}

bool MediaList::EnsureGroup(StringView group, StringView root) {
  if (group.empty() || root.empty()) return false;
  if (SameUnits(root, root_)) return true;
  // Records of another root that cannot be written yet keep the list where it is.
  if (!Flush()) return false;
  String path = DataArea(root) + u"MediaList.txt";
  try {
    Load(storage_.Read(path));
  } catch (const RunTimeError&) {
    root_.clear();
    path_.clear();
    return false;  // a list that cannot be read is not replaced by a new one
  }
  root_ = root;
  path_ = std::move(path);
  return true;
}

void MediaList::Load(const std::optional<std::string>& bytes) {
  known_.Clear();
  exists_ = bytes.has_value();
  whole_ = 0;
  torn_ = false;
  if (!bytes) return;
  std::string_view rest = *bytes;
  if (rest.starts_with(kMark)) rest.remove_prefix(kMark.size());
  for (std::size_t end = rest.find(kLineEnd); end != std::string_view::npos;
       end = rest.find(kLineEnd)) {
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end + kLineEnd.size());
    const std::size_t first = line.find(kSeparator);
    const std::size_t second = line.find(kSeparator, first + 1);
    if (first == std::string_view::npos || second == std::string_view::npos) continue;
    known_.Insert(PrintOf(FromUtf8Lossy(line.substr(first + 1, second - first - 1)),
                          FromUtf8Lossy(line.substr(second + 1))),
                  0);
  }
  torn_ = !rest.empty();
  whole_ = bytes->size() - rest.size();
}

bool MediaList::Add(const MediaRecord& record) {
  if (path_.empty()) return false;
  const Field source(record.source);
  const Field destination(record.destination);
  if (!known_.Insert(PrintOf(source.Text(), destination.Text()), 0)) return true;
  AppendUtf8(pending_, Field(record.category).Text());
  pending_ += kSeparator;
  AppendUtf8(pending_, source.Text());
  pending_ += kSeparator;
  AppendUtf8(pending_, destination.Text());
  pending_ += kLineEnd;
  return true;
}

bool MediaList::Flush() {
  if (pending_.empty()) return true;
  try {
    Write();
  } catch (const RunTimeError&) {
    torn_ = exists_;  // a part of the lines may have reached the file
    return false;
  }
  exists_ = true;
  torn_ = false;
  pending_.clear();
  return true;
}

void MediaList::Write() {
  if (exists_ && !torn_) {
    files_.OpenForAppending(path_, true)->Append(pending_);
    whole_ += pending_.size();
    return;
  }
  // A new file, or one that ends in a torn line, which is left out.
  std::string bytes = exists_ ? storage_.Read(path_).value_or(std::string()) : std::string();
  bytes.resize(std::min(bytes.size(), whole_));
  if (bytes.empty()) bytes = kMark;
  bytes += pending_;
  storage_.Write(path_, bytes);
  whole_ = bytes.size();
}

}  // namespace norvo

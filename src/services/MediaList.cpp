#include "services/MediaList.h"

#include <algorithm>

#include "automation/RunTimeError.h"
#include "services/ProfileFile.h"
#include "text/Ascii.h"
#include "text/Encoding.h"
#include "text/Utf16.h"

namespace norvo {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
constexpr char kSeparator = '\t';

// No disk holds so many songs; a list that says so is damaged and shall not fill the memory.
constexpr std::size_t kMostRecords = 1'000'000;

/// The text as a field of a line can hold it. A destination carries names out of tags, which may
/// hold anything: a control character, a line end among them, becomes a blank, and half a
/// character the replacement character, which is what it would be when the file is read again.
String AsField(StringView text) {
  String field(text);
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (IsAsciiControl(field[i])) {
      field[i] = u' ';
    } else if (IsPairAt(field, i)) {
      ++i;
    } else if (IsSurrogate(field[i])) {
      field[i] = kReplacementCharacter;
    }
  }
  return field;
}

void AppendField(std::string& line, StringView text) {
  if (!IsPlainAscii(text)) return AppendUtf8(line, AsField(text));
  AppendAscii(line, text);
}

/// Of the fields that tell a record from others, with what separates them, without regard to case.
/// A text that is ASCII in upper case is taken as its bytes, as nearly all are.
Fingerprint PrintOf(std::string_view fields) {
  if (IsAscii(fields)) return CaselessFingerprintOfBytes(fields);
  const String folded = Fold(FromUtf8Lossy(fields));
  return IsAscii(folded) ? CaselessFingerprintOfBytes(ToUtf8(folded)) : FingerprintOf(folded);
}

}  // namespace

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
    known_.Insert(PrintOf(line.substr(first + 1)));
    if (known_.Size() > kMostRecords) throw RunTimeError(error::kOutOfMemory);
  }
  torn_ = !rest.empty();
  whole_ = bytes->size() - rest.size();
}

bool MediaList::Add(const MediaRecord& record) {
  if (path_.empty()) return false;
  const std::size_t line = pending_.size();
  AppendField(pending_, record.category);
  pending_ += kSeparator;
  const std::size_t fields = pending_.size();
  AppendField(pending_, record.source);
  pending_ += kSeparator;
  AppendField(pending_, record.destination);
  if (known_.Insert(PrintOf(std::string_view(pending_).substr(fields)))) {
    pending_ += kLineEnd;
  } else {
    pending_.resize(line);
  }
  // What cannot be written waits: for as much again, or for the next flush, which tells of it.
  if (pending_.size() >= most_ && !Flush()) most_ = pending_.size() + kManyBytes;
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
  most_ = kManyBytes;
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

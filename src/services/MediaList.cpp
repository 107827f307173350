#include "services/MediaList.h"

#include <memory>
#include <optional>
#include <utility>

#include "automation/RunTimeError.h"
#include "services/ProfileFile.h"
#include "services/TextStream.h"
#include "text/Ascii.h"
#include "text/Encoding.h"
#include "text/Utf16.h"

namespace norvo {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kRecordEnd = "\r\n";
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
  if (!AppendPlainAscii(line, text)) AppendUtf8(line, AsField(text));
}

/// Of the fields that tell a record from others, with what separates them, without regard to case.
/// A text that is ASCII in upper case is taken as its bytes, as nearly all are.
Fingerprint PrintOf(std::string_view fields) {
  if (IsAscii(fields)) return CaselessFingerprintOfBytes(fields);
  const String folded = Fold(FromUtf8Lossy(fields));
  return IsAscii(folded) ? CaselessFingerprintOfBytes(ToUtf8(folded)) : FingerprintOf(folded);
}

/// The print of a line; nothing when it is no record.
std::optional<Fingerprint> PrintOfLine(std::string_view line) {
  const std::size_t first = line.find(kSeparator);
  const std::size_t second = line.find(kSeparator, first + 1);
  if (first == std::string_view::npos || second == std::string_view::npos) return std::nullopt;
  return PrintOf(line.substr(first + 1));
}

/// Calls `take` with every whole line, without its end; the bytes of all of them.
template <class Take>
std::size_t ForEachLine(std::string_view text, Take&& take) {
  std::size_t begin = 0;
  for (std::size_t end = text.find(kRecordEnd); end != std::string_view::npos;
       end = text.find(kRecordEnd, begin)) {
    take(text.substr(begin, end - begin));
    begin = end + kRecordEnd.size();
  }
  return begin;
}

/// The same of a file from its beginning; a mark counts as soon as it is whole.
template <class Take>
std::size_t ForEachLineOfFile(std::string_view text, Take&& take) {
  const std::size_t mark = text.starts_with(kMark) ? kMark.size() : 0;
  return mark + ForEachLine(text.substr(mark), take);
}

/// The lines whose records are not among those.
std::string LinesWithout(const std::string& lines, const FingerprintSet& prints) {
  std::string rest;
  ForEachLine(lines, [&](std::string_view line) {
    const std::optional<Fingerprint> print = PrintOfLine(line);
    if (!print || !prints.Has(*print)) rest.append(line).append(kRecordEnd);
  });
  return rest;
}

std::string BytesFrom(SharedFile& file, std::uint64_t offset, std::uint64_t size) {
  if (size - offset > kLargestText) throw TooLarge(kLargestText);
  std::string bytes(static_cast<std::size_t>(size - offset), '\0');
  bytes.resize(bytes.empty() ? 0 : file.ReadAt(offset, bytes));
  return bytes;
}

}  // namespace

bool MediaList::EnsureGroup(StringView group, StringView root) {
  if (group.empty() || root.empty()) return false;
  if (SameUnits(root, root_)) return true;
  // Records of another root that cannot be written yet keep the list where it is.
  if (!Flush()) return false;
  String path = DataArea(root) + u"MediaList.txt";
  try {
    Load(storage_.Read(path).value_or(std::string()));
  } catch (const RunTimeError&) {
    root_.clear();
    path_.clear();
    return false;  // a list that cannot be read is not replaced by a new one
  }
  root_ = root;
  path_ = std::move(path);
  return true;
}

void MediaList::Load(std::string_view bytes) {
  known_.Clear();
  seen_ = ForEachLineOfFile(bytes, [this](std::string_view line) {
    if (const std::optional<Fingerprint> print = PrintOfLine(line)) known_.Insert(*print);
    if (known_.Size() > kMostRecords) throw RunTimeError(error::kOutOfMemory);
  });
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
    pending_ += kRecordEnd;
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
    return false;
  }
  pending_.clear();
  most_ = kManyBytes;
  return true;
}

/// Whatever stands behind the lines that are known was added by others, or is a part of what could
/// not be written whole: records there are not added again, and a torn line is left out.
void MediaList::Write() {
  const std::unique_ptr<SharedFile> file = files_.OpenShared(path_);
  const std::uint64_t size = file->Size();
  if (size < seen_) Load({});  // somebody has begun the file anew
  const std::string added = BytesFrom(*file, seen_, size);
  FingerprintSet others;
  const auto take = [&](std::string_view line) {
    const std::optional<Fingerprint> print = PrintOfLine(line);
    if (print && others.Insert(*print)) known_.Insert(*print);
  };
  const std::uint64_t whole =
      seen_ + (seen_ == 0 ? ForEachLineOfFile(added, take) : ForEachLine(added, take));
  std::string lines = others.Size() == 0 ? pending_ : LinesWithout(pending_, others);
  if (whole == 0) lines.insert(0, kMark);
  file->EndWith(whole, lines);
  seen_ = whole + lines.size();
}

}  // namespace norvo

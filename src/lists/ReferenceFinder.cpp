#include "lists/ReferenceFinder.h"

#include <utility>

#include "automation/Attempt.h"
#include "lists/ItemText.h"
#include "lists/NameSpelling.h"
#include "lists/ReferencePaths.h"
#include "lists/ReferenceTexts.h"
#include "lists/SongNames.h"
#include "text/Ascii.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

using Kind = FoundReference::Kind;

// Windows has no longer path, and no program takes a longer address. Each meaning that such a text
// could have would be another copy of it.
constexpr std::size_t kLongestReference = 32767;

/// Nothing where the work raises: a meaning that cannot be looked at is not there.
template <class Work>
std::optional<FoundReference> NothingOnError(Work&& work) {
  return AnswerOr(std::optional<FoundReference>(), work);
}

/// True for a path on a drive or share that every player takes as it is.
bool IsFull(StringView path) {
  const bool started = path.starts_with(u"\\\\") || path.substr(0, 3).ends_with(u":\\");
  return started && path.find(u'/') == StringView::npos;
}

}  // namespace

/// Each song is asked for once, however many playlists name it; most name it by its full path, so
/// that their folders do not matter.
FoundReference ReferenceFinder::Find(StringView reference, StringView folder) {
  // As many as most people have songs, and no more than a few megabytes.
  constexpr std::size_t kMostKnown = 32768;
  reference = CleanText(reference);
  folder = TrimEnd(folder, IsSeparator);
  String key(reference);
  const bool isFull = HasDrive(reference) && reference.substr(2).starts_with(u'\\');
  if (!isFull) key.append(1, u'\0').append(folder);
  auto known = found_.find(key);
  if (known == found_.end()) {
    FoundReference found = LookFor(reference, folder);
    if (found_.size() >= kMostKnown || found.path.empty()) return found;
    if (found.path == reference) String().swap(found.path);  // its room, too
    known = found_.emplace(std::move(key), std::move(found)).first;
  }
  FoundReference found = known->second;
  if (found.path.empty()) found.path = reference;
  return found;
}

FoundReference ReferenceFinder::LookFor(StringView reference, StringView folder) {
  if (reference.size() > kLongestReference) {
    return FoundReference{Kind::Missing, String(reference), 0};
  }
  const CodePage& page = component_.Machine().AnsiPage();
  std::optional<FoundReference> found = NothingOnError([&]() -> std::optional<FoundReference> {
    for (const String& text : ReferenceTexts(reference, page)) {
      if (std::optional<FoundReference> meant = FindText(text, folder)) return meant;
    }
    return FoundReference{Kind::Missing, String(reference), 0};
  });
  return found ? *std::move(found) : FoundReference{};
}

std::optional<FoundReference> ReferenceFinder::FindText(StringView text, StringView folder) {
  if (IsInternetAddress(text)) return FoundReference{Kind::Address, String(text), 0};
  const CodePage& page = component_.Machine().AnsiPage();
  for (const String& path : ReferencePaths(text, folder, page)) {
    std::optional<FoundReference> found = NothingOnError([&] { return FindPath(path, text); });
    if (found) return found;
  }
  return std::nullopt;
}

/// One path that the text can mean.
std::optional<FoundReference> ReferenceFinder::FindPath(StringView path, StringView text) {
  String full = component_.Files().AbsolutePathName(path);
  FoundReference address{Kind::Address, path == text && IsFull(text) ? String(text) : full, 0};
  if (!HasDrive(full)) return address;
  switch (component_.Files().TypeOfDrive(full)) {
    case DriveType::Fixed:
    case DriveType::RamDisk:
      return FindSpelled(TrimEnd(full, IsSeparator));
    case DriveType::Removable:
    case DriveType::CdRom:
    case DriveType::Network:
      return address;
    case DriveType::Unknown:
      break;
  }
  return std::nullopt;
}

std::optional<FoundReference> ReferenceFinder::FindFile(StringView fullPath) {
  const std::optional<FileFacts> facts = component_.Files().FactsOf(fullPath);
  if (!facts) return std::nullopt;
  const std::size_t folder = fullPath.size() - LastComponent(fullPath).size();
  String path = String(fullPath.substr(0, folder)) + facts->name;
  const Kind kind = IsSongPath(path) ? Kind::File : Kind::NotMedia;
  return FoundReference{kind, std::move(path), facts->size};
}

/// As spelled, else in other spellings of the same.
std::optional<FoundReference> ReferenceFinder::FindSpelled(StringView fullPath) {
  std::optional<FoundReference> found = FindFile(fullPath);
  if (found || IsAscii(fullPath)) return found;
  for (const String& spelled : {Composed(fullPath), Decomposed(fullPath)}) {
    if (!found && spelled != fullPath) found = FindFile(spelled);
  }
  if (found) return found;
  const String path = PathOnDisk(fullPath);
  return path.empty() ? std::nullopt : FindFile(path);
}

/// The path with each name as the disk spells it; empty when there is none.
String ReferenceFinder::PathOnDisk(StringView fullPath) {
  String path(fullPath.substr(0, 2));
  StringView rest = fullPath.substr(path.size());
  while (!rest.empty()) {
    rest.remove_prefix(1);  // the backslash
    const StringView name = rest.substr(0, rest.find(u'\\'));
    rest.remove_prefix(name.size());
    const String written = path + u'\\' + String(name);
    const bool isFolder = !rest.empty() && component_.Files().FolderExists(written);
    // The last name is looked for in the end, and a name of ASCII alone has one spelling.
    const bool isWritten = isFolder || (rest.empty() && IsAscii(name));
    const String onDisk = isWritten ? String(name) : NameOnDisk(path + u'\\', name);
    if (onDisk.empty()) return {};
    path += u'\\' + onDisk;
  }
  return path;
}

/// How the disk spells a name in a folder, which ends in a backslash; empty when it has no such
/// name or when the name is ASCII, which has but one spelling.
String ReferenceFinder::NameOnDisk(const String& folder, StringView name) {
  if (IsAscii(name)) return {};
  auto listed = names_.find(folder);
  if (listed == names_.end()) {
    Names names;
    for (FolderItem& item : component_.Files().ListFolder(folder, {})) {
      if (IsAscii(item.name)) continue;
      String& known = names[FoldedSpelling(item.name)];
      // A disk that has several gives them in any order.
      if (known.empty() || item.name < known) known = std::move(item.name);
    }
    listed = names_.emplace(folder, std::move(names)).first;
  }
  const auto found = listed->second.find(FoldedSpelling(name));
  return found == listed->second.end() ? String() : found->second;
}

}  // namespace norvo

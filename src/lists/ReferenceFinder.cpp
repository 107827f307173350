#include "lists/ReferenceFinder.h"

#include <utility>

#include "automation/Attempt.h"
#include "lists/ItemText.h"
#include "lists/ReferencePaths.h"
#include "lists/ReferenceTexts.h"
#include "lists/SongNames.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

using Kind = FoundReference::Kind;

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

FoundReference ReferenceFinder::Find(StringView reference, StringView folder) {
  reference = CleanText(reference);
  folder = TrimEnd(folder, IsSeparator);
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
      return FindFile(full);
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

}  // namespace norvo

#include "text/WindowsPath.h"

namespace norvo {
namespace {

bool IsDriveLetter(char16_t unit) {
  const char16_t lower = ToLowerAscii(unit);
  return lower >= u'a' && lower <= u'z';
}

bool IsShare(StringView path) {
  return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
}

std::size_t NextSeparator(StringView path, std::size_t from) {
  while (from < path.size() && !IsSeparator(path[from])) ++from;
  return from;
}

std::size_t LastSeparator(StringView path) {
  return path.find_last_of(u"\\/");
}

std::vector<StringView> SplitComponents(StringView path) {
  std::vector<StringView> components;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = NextSeparator(path, at);
    const StringView component = path.substr(at, end - at);
    if (component == u"..") {
      if (!components.empty()) components.pop_back();
    } else if (!component.empty() && component != u".") {
      components.push_back(component);
    }
    at = end + 1;
  }
  return components;
}

}  // namespace

bool HasDrive(StringView path) noexcept {
  return path.size() >= 2 && path[1] == u':' && IsDriveLetter(path[0]);
}

StringView DriveName(StringView path) noexcept {
  if (HasDrive(path)) return path.substr(0, 2);
  if (!IsShare(path)) return {};
  const std::size_t server = NextSeparator(path, 2);
  return path.substr(0, server == path.size() ? server : NextSeparator(path, server + 1));
}

StringView LastComponent(StringView path) noexcept {
  const std::size_t last = LastSeparator(path);
  return last == StringView::npos ? path : path.substr(last + 1);
}

StringView BaseName(StringView path) noexcept {
  const StringView name = LastComponent(path);
  return name.substr(0, name.rfind(u'.'));
}

StringView ParentFolder(StringView path) noexcept {
  const std::size_t last = LastSeparator(path);
  if (last == StringView::npos) return {};
  const bool root = last == 2 && HasDrive(path);
  return path.substr(0, root ? 3 : last);
}

std::vector<StringView> FoldersAbove(StringView path) {
  std::vector<StringView> folders;
  const std::size_t first = path.find(u'\\');
  for (std::size_t end = first; end != StringView::npos; end = path.find(u'\\', end + 1)) {
    // The first piece keeps its backslash: a drive's root is "C:\".
    if (end > 0) folders.push_back(path.substr(0, end == first ? end + 1 : end));
  }
  return folders;
}

StringView WithoutTrail(StringView name) noexcept {
  return TrimEnd(name, [](char16_t unit) { return unit == u'.' || unit == u' '; });
}

bool IsAbsolutePath(StringView path) noexcept {
  if (!HasDrive(path) || path.size() < 3 || path[2] != u'\\') return false;
  const bool isOther = AnyNeighbours(path, 3, [](char16_t before, char16_t unit) -> std::uint16_t {
    const std::uint16_t starts = before == u'\\';
    const std::uint16_t slash = unit == u'/';
    const std::uint16_t point = unit == u'.';
    const std::uint16_t backslash = unit == u'\\';
    return slash | (starts & (point | backslash));
  });
  return !isOther && path.back() != u'.' && path.back() != u' ';
}

String AbsolutePath(StringView path, StringView currentDrive) {
  if (IsAbsolutePath(path)) return String(path);
  const StringView drive = DriveName(path);
  const StringView rest = path.substr(drive.size());
  String result(drive.empty() ? currentDrive : drive);
  for (char16_t& unit : result) {
    if (unit == u'/') unit = u'\\';
  }
  const std::vector<StringView> components = SplitComponents(rest);
  const bool trailing = !rest.empty() && IsSeparator(rest.back());
  for (std::size_t i = 0; i < components.size(); ++i) {
    const bool last = i + 1 == components.size() && !trailing;
    result.push_back(u'\\');
    result += last ? WithoutTrail(components[i]) : components[i];
  }
  if (components.empty() || trailing) result.push_back(u'\\');
  return result;
}

}  // namespace norvo

#include "lists/ReferencePaths.h"

#include <algorithm>

#include "lists/ReferenceTexts.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kLocalHost = u"localhost";

bool IsSchemeUnit(char16_t unit) {
  const char16_t lower = ToLowerAscii(unit);
  return (lower >= u'a' && lower <= u'z') || IsDigit(unit) || unit == u'+' || unit == u'-' ||
         unit == u'.';
}

std::size_t CountSeparators(StringView text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), IsSeparator);
  return static_cast<std::size_t>(end - text.begin());
}

/// "C|\x" as "C:\x".
String WithColon(StringView path) {
  String result(path);
  if (result.size() > 1 && result[1] == u'|') result[1] = u':';
  return result;
}

/// True for "server\share", with what follows.
bool NamesShare(StringView text) {
  const std::size_t server = text.find_first_of(u"\\/");
  return server != StringView::npos && CountSeparators(text.substr(server)) < text.size() - server;
}

/// The path of a text that is no URL; empty when it names nothing.
String PlainPath(StringView text, StringView folder) {
  const std::size_t separators = CountSeparators(text);
  const StringView rest = text.substr(separators);
  if (rest.empty()) return {};
  String onDrive = WithColon(rest);
  if (HasDrive(onDrive)) return onDrive;
  if (separators == 2 && NamesShare(rest)) return String(text);
  if (folder.empty()) return {};
  return String(separators > 0 ? DriveName(folder) : folder) + u'\\' + String(rest);
}

/// The path of what follows "file:".
String UrlPath(StringView text, StringView folder) {
  const std::size_t separators = CountSeparators(text);
  const StringView rest = text.substr(separators);
  const bool hasHost = separators == 2 && rest.find_first_of(u"\\/") != StringView::npos;
  if (hasHost && EqualsIgnoreCase(rest.substr(0, rest.find_first_of(u"\\/")), kLocalHost)) {
    return PlainPath(rest.substr(kLocalHost.size()), folder);
  }
  const bool isShare = hasHost || separators > 3;
  if (isShare) return PlainPath(u"\\\\" + String(rest), folder);
  const bool fromRoot = separators == 1 || separators == 3;
  return PlainPath(fromRoot ? u"\\" + String(rest) : String(rest), folder);
}

}  // namespace

bool IsInternetAddress(StringView reference) {
  const auto* const end = std::find_if_not(reference.begin(), reference.end(), IsSchemeUnit);
  const auto length = static_cast<std::size_t>(end - reference.begin());
  return length > 1 && !IsDigit(reference.front()) &&
         reference.substr(length).starts_with(u"://") &&
         !EqualsIgnoreCase(reference.substr(0, length), u"file");
}

std::vector<String> ReferencePaths(StringView reference, StringView folder, const CodePage& page) {
  std::vector<String> paths;
  const auto add = [&paths](String path) {
    if (!path.empty() && std::find(paths.begin(), paths.end(), path) == paths.end()) {
      paths.push_back(std::move(path));
    }
  };
  if (EqualsIgnoreCase(reference.substr(0, kFileScheme.size()), kFileScheme)) {
    const StringView written = reference.substr(kFileScheme.size());
    add(UrlPath(DecodePercent(written, page), folder));
    add(UrlPath(written, folder));
  } else {
    add(PlainPath(reference, folder));
    // The library takes all that starts so for a share, and keeps it.
    const bool maybeShare = reference.starts_with(u"\\\\") && !paths.empty();
    if (maybeShare) add(String(reference));
  }
  return paths;
}

}  // namespace norvo

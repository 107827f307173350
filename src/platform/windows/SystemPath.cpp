#include "platform/windows/SystemPath.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/WideText.h"
#include "platform/windows/WindowsError.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kMark = u"\\\\?\\";
constexpr StringView kShareMark = u"\\\\?\\UNC\\";

/// A text that a system call fills into a buffer: `call` gets the buffer and its size, and gives
/// the length of the text, or the size that it needs with the NUL; 0 when it fails.
template <class Call>
String SystemText(Call&& call) {
  String text(MAX_PATH, u'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(text.size());
    const DWORD length = call(ToWide(text), size);
    if (length == 0) RaiseWindowsError(::GetLastError(), Subject::Folder, {});
    text.resize(length);
    if (length < size) return text;
  }
}

/// "C:", or the share of a current folder that is on none.
String CurrentDrive() {
  const String folder =
      SystemText([](wchar_t* buffer, DWORD size) { return ::GetCurrentDirectoryW(size, buffer); });
  return String(DriveName(FromSystemPath(folder)));
}

bool CanBeName(StringView name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char16_t unit) {
    return unit >= u' ' && StringView(u"<>:\"|?*").find(unit) == StringView::npos;
  });
}

/// Adds the names of a path, each behind one separator; false when one of them can be none.
bool AppendNames(String& result, StringView path) {
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find(u'\\', at), path.size());
    const StringView component = path.substr(at, end - at);
    const StringView name = WithoutTrail(component);
    at = end + 1;
    if (component.empty()) continue;
    if (!CanBeName(name)) return false;
    result.append(1, u'\\').append(name);
  }
  return true;
}

}  // namespace

String FullPath(StringView path) {
  if (IsAbsolutePath(path)) return String(path);
  return AbsolutePath(path, DriveName(path).empty() ? CurrentDrive() : String());
}

std::optional<String> ToSystemPath(StringView path) {
  if (path.empty()) return std::nullopt;
  const String full = FullPath(path);
  const StringView drive = DriveName(full);
  const StringView names = StringView(full).substr(drive.size());
  String result;
  if (HasDrive(drive)) {
    result.append(kMark).append(drive);
  } else {
    const std::size_t server = std::min(drive.find(u'\\', 2), drive.size());
    if (server == 2 || server + 1 >= drive.size()) return std::nullopt;
    result = kShareMark.substr(0, kShareMark.size() - 1);
    if (!AppendNames(result, drive.substr(2))) return std::nullopt;
  }
  const std::size_t root = result.size();
  if (!AppendNames(result, names)) return std::nullopt;
  if (result.size() == root) result.push_back(u'\\');
  return result;
}

bool IsReachableName(StringView name) {
  return CanBeName(name) && WithoutTrail(name) == name;
}

String FromSystemPath(StringView path) {
  if (path.starts_with(kShareMark)) return u"\\\\" + String(path.substr(kShareMark.size()));
  return String(path.starts_with(kMark) ? path.substr(kMark.size()) : path);
}

String SystemFolderPath() {
  return SystemText(
             [](wchar_t* buffer, DWORD size) { return ::GetSystemDirectoryW(buffer, size); }) +
         u'\\';
}

}  // namespace norvo

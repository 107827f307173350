#include "platform/nt/NtPath.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/nt/WideNames.h"
#include "platform/nt/WindowsCode.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// The native calls count a path's bytes in 16 bits.
constexpr std::size_t kLongestPath = 32767;

constexpr StringView kShareMark = u"UNC\\";

/// The folder that relative paths begin at: the process's own, or that of a drive ("E:").
String CurrentFolder(const String& drive) {
  const String asked = drive.empty() ? u"." : drive;
  String folder(MAX_PATH, u'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(folder.size());
    const DWORD length = ::GetFullPathNameW(reinterpret_cast<const wchar_t*>(asked.c_str()), size,
                                            reinterpret_cast<wchar_t*>(folder.data()), nullptr);
    folder.resize(length);
    if (length < size) return folder;  // empty when it failed
  }
}

/// With backslashes only, from a drive, a share or the mark of a path that is taken as it is.
String FullPath(String path) {
  std::replace(path.begin(), path.end(), u'/', u'\\');
  if (path.starts_with(u"\\\\")) return path;
  const bool hasDrive = HasDrive(path);
  const StringView rest = StringView(path).substr(hasDrive ? 2 : 0);
  if (!rest.starts_with(u'\\')) {
    return CurrentFolder(hasDrive ? path.substr(0, 2) : String()).append(u"\\").append(rest);
  }
  return hasDrive ? path : String(DriveName(CurrentFolder({}))).append(path);
}

/// A path in full, cut behind what names its disk: "C:", "UNC\server\share" or "Volume{...}".
struct Cut {
  String disk;  // empty for a path on none
  StringView names;
};

/// Cuts off the first `count` names.
Cut CutBehind(StringView path, int count) {
  std::size_t end = 0;
  for (int i = 0; i < count; ++i) {
    const std::size_t begin = i == 0 ? 0 : end + 1;
    if (begin > path.size()) return {};
    end = std::min(path.find(u'\\', begin), path.size());
    if (end == begin) return {};
  }
  return {String(path.substr(0, end)), path.substr(end)};
}

Cut CutPath(StringView full) {
  if (full.starts_with(u"\\\\?\\")) {
    full.remove_prefix(4);
    return CutBehind(full, full.starts_with(kShareMark) ? 3 : 1);
  }
  if (full.starts_with(u"\\\\.\\")) return {};
  if (!full.starts_with(u"\\\\")) return CutBehind(full, 1);
  Cut share = CutBehind(full.substr(2), 2);
  if (!share.disk.empty()) share.disk.insert(0, kShareMark);
  return share;
}

/// The names of a path from its disk on, without those that lead nowhere else.
std::vector<StringView> Resolved(StringView names) {
  std::vector<StringView> parts;
  for (std::size_t at = 0; at < names.size();) {
    const std::size_t end = std::min(names.find(u'\\', at), names.size());
    const StringView part = names.substr(at, end - at);
    at = end + 1;
    if (part == u"..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != u".") {
      parts.push_back(part);
    }
  }
  return parts;
}

}  // namespace

FileResult<String> ToNtPath(const std::string& path) {
  if (path.empty()) return FailureOfCode(ERROR_PATH_NOT_FOUND);
  std::optional<String> wide = ToWideName(path);
  if (!wide || wide->find(u'\0') != String::npos) return FailureOfCode(ERROR_INVALID_NAME);
  const String full = FullPath(std::move(*wide));
  const Cut cut = CutPath(full);
  if (cut.disk.empty()) return FailureOfCode(ERROR_INVALID_NAME);
  String result = u"\\??\\" + cut.disk;
  const std::vector<StringView> parts = Resolved(cut.names);
  for (const StringView part : parts) {
    if (const FileFailure failure = FailureOfName(part)) return failure;
    result.append(u"\\").append(part);
  }
  if (parts.empty()) result.push_back(u'\\');
  if (result.size() > kLongestPath) return FailureOfCode(ERROR_FILENAME_EXCED_RANGE);
  return result;
}

}  // namespace norvo

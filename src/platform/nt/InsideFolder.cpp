#include "platform/nt/InsideFolder.h"

#include <utility>

#include "platform/files/DiskPath.h"
#include "platform/nt/ReparsePoint.h"
#include "platform/nt/WideNames.h"
#include "platform/nt/WindowsCode.h"
#include "platform/win32/QuietDrives.h"

namespace norvo {
namespace {

constexpr ULONG kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

UNICODE_STRING NativeText(StringView text) {
  // The call only reads it.
  auto* const units = const_cast<wchar_t*>(reinterpret_cast<const wchar_t*>(text.data()));
  const auto bytes = static_cast<USHORT>(text.size() * sizeof(wchar_t));
  return {bytes, bytes, units};
}

/// `folder` null: the path is a full one.
FileResult<SystemFile> Create(HANDLE folder, StringView path, const Opening& how, ULONG options) {
  UNICODE_STRING text = NativeText(path);
  OBJECT_ATTRIBUTES object = {};
  InitializeObjectAttributes(&object, &text, OBJ_CASE_INSENSITIVE, folder, nullptr);
  IO_STATUS_BLOCK block = {};
  HANDLE opened = nullptr;
  const NTSTATUS status =
      ::NtCreateFile(&opened, how.access | SYNCHRONIZE, &object, &block, nullptr, how.attributes,
                     how.isAlone ? 0 : kShareAll, how.disposition,
                     how.options | options | FILE_SYNCHRONOUS_IO_NONALERT, nullptr, 0);
  if (const FileFailure failure = FailureOfStatus(status)) return failure;
  return Owned(opened);
}

FileFailure LinkInTheWay() {
  return FailureOfCode(kStoppedOnSymlink);
}

bool IsLinkIn(HANDLE folder, StringView name) {
  const FileResult<SystemFile> file = Create(folder, name, Opening(), FILE_OPEN_REPARSE_POINT);
  return file && ReparsePointOf(HandleOf(*file)).isLink;
}

/// True for the answers of one who is asked for a folder, or for none, and has the other.
bool IsOfTheWrongKind(FileFailure failure) {
  return failure.kind == FileFailure::Kind::NotAFolder ||
         failure.kind == FileFailure::Kind::IsAFolder;
}

/// Why something that was just opened is not to be used so.
FileFailure RefusalOf(HANDLE file, const Opening& how) {
  const ReparsePoint point = ReparsePointOf(file);
  if (point.failure) return point.failure;
  if (point.isLink && !how.takesLinks) return LinkInTheWay();
  const bool isForItsBytes = (how.access & (FILE_READ_DATA | FILE_APPEND_DATA)) != 0;
  return isForItsBytes && point.lacksBytes ? FailureOfCode(ERROR_CANT_ACCESS_FILE) : FileFailure();
}

FileResult<SystemFile> OpenPartByPart(const SystemFile& root, StringView path, const Opening& how) {
  SystemFile reached;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = path.find(u'/', begin)) != StringView::npos; begin = end + 1) {
    FileResult<SystemFile> next = OpenPart(HandleOf(reached.IsOpen() ? reached : root),
                                           path.substr(begin, end - begin), kStart);
    if (!next) return next;
    reached = std::move(*next);
  }
  return OpenPart(HandleOf(reached.IsOpen() ? reached : root), path.substr(begin), how);
}

}  // namespace

FileResult<SystemFile> OpenPart(HANDLE folder, StringView name, const Opening& how) {
  if (name.empty()) return Create(folder, name, how, 0);
  if (const FileFailure failure = FailureOfName(name)) return failure;
  FileResult<SystemFile> file = Create(folder, name, how, FILE_OPEN_REPARSE_POINT);
  if (!file) {
    const bool isLink = IsOfTheWrongKind(file.Failure()) && IsLinkIn(folder, name);
    return isLink ? LinkInTheWay() : file.Failure();
  }
  // What it has made itself is no link.
  if (how.disposition == FILE_CREATE) return file;
  if (const FileFailure refusal = RefusalOf(HandleOf(*file), how)) return refusal;
  return file;
}

FileResult<SystemFile> OpenInside(const SystemFile& root, const std::string& path,
                                  const Opening& how) {
  if (path.empty()) return OpenPart(HandleOf(root), {}, how);
  const std::optional<String> wide = ToWideName(path);
  if (!wide || wide->ends_with(u'/')) return FailureOfCode(ERROR_INVALID_NAME);
  return OpenPartByPart(root, *wide, how);
}

FileResult<SystemFile> OpenNtPath(const String& path, const Opening& how) {
  const QuietDrives quiet;
  return Create(nullptr, path, how, how.takesLinks ? FILE_OPEN_REPARSE_POINT : 0);
}

InsideFolder::InsideFolder(const SystemFile& root, const std::string& path) : root_(root) {
  std::optional<String> name = ToWideName(LeafOf(path));
  failure_ = name ? FailureOfName(*name) : FailureOfCode(ERROR_INVALID_NAME);
  if (failure_) return;
  name_ = std::move(*name);
  const std::string_view folder = ParentOf(path);
  if (folder.empty()) return;
  FileResult<SystemFile> opened = OpenInside(root, std::string(folder), kStart);
  failure_ = opened.Failure();
  if (opened) reached_ = std::move(*opened);
}

FileResult<SystemFile> InsideFolder::Open(const Opening& how) const {
  return OpenPart(Folder(), name_, how);
}

}  // namespace norvo

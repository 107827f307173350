#include "platform/nt/FakePoints.h"

#include <winternl.h>

#include <utility>

#include "support/windows/ImportTable.h"

namespace norvo {
namespace {

using Question = decltype(&::NtQueryInformationFile);

constexpr const char* kQuestion = "NtQueryInformationFile";

struct Faked {
  std::wstring name;
  ULONG tag = 0;
  ULONG attributes = 0;
  Question real = nullptr;
} faked;

/// The name that the file was opened by ends so.
bool IsFaked(HANDLE file) {
  ULONG buffer[400] = {};
  IO_STATUS_BLOCK block = {};
  faked.real(file, &block, buffer, sizeof buffer, FileNameInformation);
  const std::wstring path(reinterpret_cast<const wchar_t*>(buffer + 1),
                          buffer[0] / sizeof(wchar_t));
  return path.ends_with(L"\\" + faked.name);
}

NTSTATUS NTAPI Answer(HANDLE file, PIO_STATUS_BLOCK block, PVOID facts, ULONG size,
                      FILE_INFORMATION_CLASS what) {
  const NTSTATUS status = faked.real(file, block, facts, size, what);
  if (!NT_SUCCESS(status) || !IsFaked(file)) return status;
  const ULONG attributes = FILE_ATTRIBUTE_REPARSE_POINT | faked.attributes;
  if (what == FileAttributeTagInformation) {
    auto& tag = *static_cast<FILE_ATTRIBUTE_TAG_INFORMATION*>(facts);
    tag.FileAttributes |= attributes;
    tag.ReparseTag = faked.tag;
  } else if (what == FileNetworkOpenInformation) {
    static_cast<FILE_NETWORK_OPEN_INFORMATION*>(facts)->FileAttributes |= attributes;
  } else if (what == FileBasicInformation) {
    static_cast<FILE_BASIC_INFORMATION*>(facts)->FileAttributes |= attributes;
  }
  return status;
}

}  // namespace

FakePoints::FakePoints(std::wstring name, ULONG tag, ULONG attributes) {
  faked = {std::move(name), tag, attributes, &::NtQueryInformationFile};
  faked.real =
      reinterpret_cast<Question>(ExchangeImport(kQuestion, reinterpret_cast<Address>(&Answer)));
}

FakePoints::~FakePoints() {
  ExchangeImport(kQuestion, reinterpret_cast<Address>(faked.real));
}

}  // namespace norvo

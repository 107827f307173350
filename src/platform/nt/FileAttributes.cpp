#include "platform/nt/FileAttributes.h"

#include "platform/nt/Handle.h"
#include "platform/nt/ReparsePoint.h"

namespace norvo {
namespace {

ULONG AttributesOf(HANDLE file) {
  FILE_BASIC_INFORMATION facts = {};
  Query(file, FileBasicInformation, facts);
  return facts.FileAttributes;
}

}  // namespace

bool IsReadOnly(HANDLE file) {
  return (AttributesOf(file) & FILE_ATTRIBUTE_READONLY) != 0;
}

bool IsPlainFolder(HANDLE file) {
  return (AttributesOf(file) & FILE_ATTRIBUTE_DIRECTORY) != 0 && !ReparsePointOf(file).isLink;
}

FileFailure SetReadOnly(HANDLE file, bool readOnly) {
  FILE_BASIC_INFORMATION facts = {};
  if (const FileFailure failure = FailureOfStatus(Query(file, FileBasicInformation, facts))) {
    return failure;
  }
  const ULONG others = facts.FileAttributes & ~static_cast<ULONG>(FILE_ATTRIBUTE_READONLY);
  FILE_BASIC_INFORMATION changed = {};  // times of 0 stay as they are
  changed.FileAttributes = readOnly ? others | FILE_ATTRIBUTE_READONLY : others;
  // None at all would stand for "as they are", too.
  if (changed.FileAttributes == 0) changed.FileAttributes = FILE_ATTRIBUTE_NORMAL;
  return FailureOfStatus(Set(file, FileBasicInformation, changed));
}

}  // namespace norvo

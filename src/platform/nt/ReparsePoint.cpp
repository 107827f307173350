#include "platform/nt/ReparsePoint.h"

#include "platform/nt/Handle.h"

namespace norvo {
namespace {

// FILE_ATTRIBUTE_RECALL_ON_OPEN and FILE_ATTRIBUTE_RECALL_ON_DATA_ACCESS, which some headers lack.
constexpr ULONG kRecallOnOpen = 0x00040000;
constexpr ULONG kRecallOnDataAccess = 0x00400000;
constexpr ULONG kAway = FILE_ATTRIBUTE_OFFLINE | kRecallOnOpen | kRecallOnDataAccess;

/// All tags from IO_REPARSE_TAG_CLOUD to IO_REPARSE_TAG_CLOUD_F.
bool IsOfACloud(ULONG tag) {
  constexpr ULONG kNumber = 0x0000F000;
  return (tag & ~kNumber) == static_cast<ULONG>(IO_REPARSE_TAG_CLOUD);
}

}  // namespace

ReparsePoint ReparsePointOf(HANDLE file) {
  FILE_ATTRIBUTE_TAG_INFORMATION facts = {};
  const NTSTATUS status = Query(file, FileAttributeTagInformation, facts);
  ReparsePoint point;
  // A disk that does not know the question has none.
  if (!IsUnknownHere(status)) point.failure = FailureOfStatus(status);
  if ((facts.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return point;
  point.isLink = IsReparseTagNameSurrogate(facts.ReparseTag) != 0;
  const bool isFolder = (facts.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const bool isHere = IsOfACloud(facts.ReparseTag) && (facts.FileAttributes & kAway) == 0;
  point.lacksBytes = !point.isLink && !isFolder && !isHere;
  return point;
}

}  // namespace norvo

#include "cli/Drop.h"

namespace norvo {

const char* DescriptionOf(DropReason reason) {
  switch (reason) {
    case DropReason::Missing:
      return "no such file";
    case DropReason::NotMedia:
      return "not a media file";
    case DropReason::EmptyReference:
      return "empty reference";
    case DropReason::NotRegistered:
      return "not taken by the media list";
  }
  return "";
}

const char* NameOf(DropReason reason) {
  switch (reason) {
    case DropReason::Missing:
      return "missing";
    case DropReason::NotMedia:
      return "notMedia";
    case DropReason::EmptyReference:
      return "emptyReference";
    case DropReason::NotRegistered:
      return "notRegistered";
  }
  return "";
}

std::optional<DropReason> DropReasonOf(ItemOutcome outcome) {
  switch (outcome) {
    case ItemOutcome::Kept:
      break;
    case ItemOutcome::Missing:
      return DropReason::Missing;
    case ItemOutcome::NotMedia:
      return DropReason::NotMedia;
    case ItemOutcome::Empty:
      return DropReason::EmptyReference;
    case ItemOutcome::NotRegistered:
      return DropReason::NotRegistered;
  }
  return std::nullopt;
}

}  // namespace norvo

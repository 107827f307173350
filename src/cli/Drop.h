#pragma once

#include <cstddef>
#include <optional>

#include "services/Observer.h"
#include "text/Text.h"

namespace norvo {

/// Why an item of a playlist became no entry.
enum class DropReason { Missing, NotMedia, EmptyReference, NotRegistered };
inline constexpr std::size_t kDropReasons = 4;

/// "no such file" and so on, for people.
const char* DescriptionOf(DropReason reason);
/// "missing" and so on, for documents.
const char* NameOf(DropReason reason);

struct Drop {
  DropReason reason = DropReason::Missing;
  String reference;  ///< as the reader resolved it
};

/// Nothing for an item that was kept.
std::optional<DropReason> DropReasonOf(ItemOutcome outcome);

}  // namespace norvo

#pragma once

#include <optional>

#include "text/Text.h"

namespace norvo::host {

/// Why an item of a playlist became no entry.
enum class DropReason { Missing, NotMedia, EmptyReference };
inline constexpr std::size_t kDropReasons = 3;

/// "no such file" and so on, for people.
const char* DescriptionOf(DropReason reason);
/// "missing" and so on, for documents.
const char* NameOf(DropReason reason);

struct Drop {
  DropReason reason = DropReason::Missing;
  String reference;  ///< as the reader resolved it
};

/// What a log line of a reader says of an item; nothing for any other line.
std::optional<Drop> DropOf(StringView logLine);

/// True for a line that tells of work which was not done: a folder that cannot be listed, a file
/// that cannot be looked at, a media list that cannot be written.
bool IsWarning(StringView logLine);

}  // namespace norvo::host

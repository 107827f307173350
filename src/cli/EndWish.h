#pragma once

namespace norvo::cli {

/// True once the user, or the system, wishes the program's end: by Ctrl+C, by closing the terminal,
/// by ending the session. From the first call on such a wish is only noted, so that the work can
/// end where everything is whole; before that, and at the second wish, the program ends at once.
bool IsEndWished();

}  // namespace norvo::cli

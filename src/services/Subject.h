#pragma once

namespace norvo {

/// What a failed call was about, which decides on the number of the run-time error. What is missing
/// has another number for a file than for a folder; for something new it is the folder around it
/// that is missing.
enum class Subject { File, Folder, New };

}  // namespace norvo

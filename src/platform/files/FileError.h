#pragma once

#include <cstdint>

#include "automation/RunTimeError.h"
#include "platform/files/FileFailure.h"
#include "services/Subject.h"
#include "text/Text.h"

namespace norvo {

/// Number of the run-time error that stands for a failure.
std::int32_t ErrorNumber(FileFailure::Kind kind, Subject subject);

/// That error, which still knows why the system refused.
class FileError final : public RunTimeError {
 public:
  FileError(FileFailure failure, Subject subject, StringView path);
  FileFailure Failure() const noexcept { return failure_; }

 private:
  FileFailure failure_;
};

/// Raises a FileError; its description names the path.
[[noreturn]] void RaiseFileError(FileFailure failure, Subject subject, StringView path);

}  // namespace norvo

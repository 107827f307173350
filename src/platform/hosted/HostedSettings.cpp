#include "platform/hosted/HostedSettings.h"

#include "automation/RunTimeError.h"
#include "services/TextStream.h"

namespace norvo {

std::optional<std::string> HostedSettings::Read(StringView path) {
  try {
    return ReadWholeFile(*files_.OpenForReading(path));
  } catch (const RunTimeError& failure) {
    const bool missing =
        failure.Number() == error::kFileNotFound || failure.Number() == error::kPathNotFound;
    if (!missing) throw;
    return std::nullopt;
  }
}

void HostedSettings::Write(StringView path, const std::string& bytes) {
  files_.ReplaceWhole(path, bytes);
}

}  // namespace norvo

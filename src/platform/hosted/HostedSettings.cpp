#include "platform/hosted/HostedSettings.h"

#include "services/TextStream.h"

namespace norvo {

std::optional<std::string> HostedSettings::Read(StringView path) {
  return ReadFileIfThere(files_, path);
}

void HostedSettings::Write(StringView path, const std::string& bytes) {
  files_.ReplaceWhole(path, bytes);
}

}  // namespace norvo

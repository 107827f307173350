// Any bytes as a program whose version is asked for: four numbers of sixteen bits, or nothing.
#include <algorithm>

#include "Fuzzing.h"
#include "platform/hosted/ProgramVersion.h"
#include "text/Number.h"

namespace {

using namespace norvo;

class Bytes final : public BinaryFile {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
    if (offset >= bytes_.size()) return 0;
    return bytes_.copy(buffer.data(), buffer.size(), static_cast<std::size_t>(offset));
  }
  std::uint64_t Size() override { return bytes_.size(); }

 private:
  std::string_view bytes_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Bytes file(AsBytes(data, size));
  const String version = ProgramVersion(file);
  if (version.empty()) return 0;
  const std::vector<StringView> parts = Split(version, u'.');
  Require(parts.size() == 4);
  for (const StringView part : parts) Require(ParseNumber(part).value_or(-1) <= 0xFFFF);
  return 0;
}

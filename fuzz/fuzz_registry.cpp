// Any bytes as a registry text: what is not changed comes out as it went in, and a value that was
// written reads back.
#include "FuzzedPlaylist.h"
#include "platform/hosted/RegistryText.h"
#include "text/Encoding.h"

namespace {

norvo::String TextOf(const norvo::RegistryText& registry) {
  norvo::String text;
  registry.ForEachPart([&text](norvo::StringView part) { text += part; });
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const norvo::String text = norvo::FromUtf8Lossy(norvo::AsBytes(data, size));
  norvo::RegistryText registry(text);
  if (!registry.IsValid()) return 0;
  // A file that holds nothing is an empty registry, which gets a first line.
  const bool blank = text.find_first_not_of(u" \t\r\n\xFEFF") == norvo::String::npos;
  if (!blank && TextOf(registry) != text) std::abort();
  const norvo::StringView key = u"Software\\Norvo\\Debug";
  registry.Read(norvo::Hive::CurrentUser, key, u"VBDebugOut");
  if (!registry.Write(norvo::Hive::CurrentUser, key, u"VBDebugOut", std::int32_t{3})) std::abort();
  const auto value = registry.Read(norvo::Hive::CurrentUser, key, u"VBDebugOut");
  if (!value || *value != norvo::RegistryValue(std::int32_t{3})) std::abort();
  norvo::RegistryText again(TextOf(registry));
  if (again.Read(norvo::Hive::CurrentUser, key, u"VBDebugOut") != value) std::abort();
  return 0;
}

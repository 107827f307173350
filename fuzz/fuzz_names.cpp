// Any text as a name and as a path: the names that are made of it are such as they shall be, and
// stay so; one that a disk can have comes back from it; a path in full is one.
#include "Fuzzing.h"
#include "lists/NameSpelling.h"
#include "move/PortableNames.h"
#include "platform/hosted/DiskName.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace {

using namespace norvo;

void CheckPortable(StringView text, const CodePage* page) {
  const String name = PortableName(text, page);
  Require(IsPortableName(name, page) && PortableName(name, page) == name);
  Require(!IsPortableName(text, page) || name == text);
  Require(ToUtf8(PortableName(text, page, 80)).size() <= 80);
  const String numbered = NumberedName(name, 12, 80);
  Require(IsPortableName(numbered, page) && ToUtf8(numbered).size() <= 80);
}

void CheckDiskName(StringView text) {
  const std::optional<std::string> disk = ToDiskName(text);
  if (!disk) return;
  Require(FingerprintOfName(text) == FingerprintOfDiskName(*disk));
  const std::optional<String> back = FromDiskName(*disk);
  Require(IsExpressible(*disk) == back.has_value());
  Require(!back || *back == WithoutTrail(text));
}

void CheckPath(StringView text) {
  const String path = AbsolutePath(text, u"C:");
  Require(!HasDrive(path) || AbsolutePath(path, u"C:") == path);
  Require(!IsAbsolutePath(text) || path == text);
  for (const StringView part :
       {DriveName(text), LastComponent(text), BaseName(text), ParentFolder(text)}) {
    Require(IsViewOf(part, text));
  }
}

void CheckSpelling(StringView text) {
  const String composed = Composed(text);
  Require(Composed(composed) == composed && Composed(Decomposed(text)) == composed);
  Require(FoldedSpelling(composed) == FoldedSpelling(text));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = FromUtf8Lossy(AsBytes(data, size));
  CheckPortable(text, nullptr);
  CheckPortable(text, &Windows1252());
  CheckDiskName(text);
  CheckPath(text);
  CheckSpelling(text);
  return 0;
}

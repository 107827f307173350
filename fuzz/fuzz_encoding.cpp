// Any bytes as a text of every encoding: what can be decoded is encoded to the same bytes, and what
// has been encoded is decoded to the same text.
#include "Fuzzing.h"
#include "text/Encoding.h"

namespace {

using namespace norvo;

void CheckUtf8(std::string_view bytes) {
  const String lossy = FromUtf8Lossy(bytes);
  Require(IsWholeUtf16(lossy) && lossy.size() <= bytes.size());
  const std::optional<String> exact = FromUtf8(bytes);
  Require(exact.has_value() == (ToUtf8(lossy) == bytes));
  Require(!exact || *exact == lossy);
}

void CheckPage(std::string_view bytes) {
  const String text = Windows1252().Decode(bytes);
  Require(text.size() == bytes.size() && Windows1252().Fits(text));
  Require(Windows1252().Encode(text) == bytes && Windows1252().EncodeFitting(text) == bytes);
}

void CheckFile(StringView text, FileEncoding encoding) {
  const std::string bytes = EncodeFile(text, encoding, Windows1252());
  Require(DetectEncoding(bytes) == encoding && DecodeFile(bytes, Windows1252()) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = AsBytes(data, size);
  CheckUtf8(bytes);
  CheckPage(bytes);
  const String text = DecodeFile(bytes, Windows1252());
  Require(text.size() <= bytes.size());
  const String whole = FromUtf8Lossy(ToUtf8(text));
  Require(IsWholeUtf16(text) == (whole == text));
  CheckFile(whole, FileEncoding::Utf8);
  CheckFile(whole, FileEncoding::Utf16LittleEndian);
  CheckFile(whole, FileEncoding::Utf16BigEndian);
  return 0;
}

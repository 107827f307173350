// Any bytes as a settings file, with changes behind its first zero byte (pieces of section, key and
// value): what is written reads back as it was, and a draft of it is the same document.
#include "Fuzzing.h"
#include "move/GenericDraft.h"
#include "services/SettingsLines.h"
#include "text/Encoding.h"

namespace {

using namespace norvo;

/// Without what a file cannot hold, or holds as another text.
String Name(std::string_view bytes) {
  String name = Windows1252().Decode(bytes);
  for (char16_t& unit : name) {
    if (IsAsciiControl(unit) || unit == u'=' || unit == u'[' || unit == u']' || unit == u';') {
      unit = u'_';
    }
  }
  return String(Trim(u'k' + name));
}

/// A draft leaves no empty line behind a key whose value ends in a line end.
String Value(std::string_view bytes) {
  String value = Windows1252().Decode(bytes);
  while (!value.empty() && IsAsciiControl(value.back())) value.pop_back();
  return value;
}

/// Gives the text of the document as it is in the end. What is asked of that text is asked after
/// the last change alone: each of the others is the last one of a shorter input.
String Change(std::string_view changes, IniDocument& document, GenericDraft& draft) {
  String name;
  String key;
  while (!changes.empty()) {
    name = Name(TakePiece(changes));
    key = Name(TakePiece(changes));
    const String value = Value(TakePiece(changes));
    const std::size_t section = document.FindOrAddSection(name);
    const std::size_t drafted = draft.FindOrAddSection(name);
    document.SetValue(section, key, value);
    draft.SetValue(drafted, key, value);
    Require(document.Value(section, key) == draft.Value(drafted, key));
    Require(document.FindSection(name) == section && draft.FindSection(name) == drafted);
  }
  String text = document.ToText();
  Require(HasSetting(text, name, key));
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view changes = AsBytes(data, size);
  const String text = DecodeFile(TakePiece(changes), Windows1252());
  IniDocument document(text);
  const String once = document.ToText();
  Require(IniDocument(once).ToText() == once);
  SectionPool pool;
  GenericDraft draft(text, pool);
  Require(draft.ToText() == once);
  if (changes.empty()) return 0;
  const String changed = Change(changes, document, draft);
  Require(draft.ToText() == changed);
  Require(IniDocument(changed).ToText() == changed);
  return 0;
}

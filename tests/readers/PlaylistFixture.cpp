#include "readers/PlaylistFixture.h"

#include "automation/Conversions.h"

namespace norvo {
namespace {

std::string Padded(std::string_view text, std::size_t length) {
  std::string field(text.substr(0, length));
  field.resize(length, '\0');
  return field;
}

}  // namespace

std::string UntaggedMedia() {
  return std::string(200, 'x');
}

std::string MediaWithOldTag(std::string_view song, std::string_view artist,
                            std::string_view album) {
  constexpr char kRock = 17;
  return std::string(100, 'x') + "TAG" + Padded(song, 30) + Padded(artist, 30) + Padded(album, 30) +
         "1999" + Padded("", 30) + kRock;
}

std::string MediaWithFrames(const std::vector<std::pair<std::string, std::string>>& frames) {
  std::string bytes("ID3\x03\0\0\0\0\0\0", 10);
  for (const auto& [identifier, text] : frames) {
    bytes += identifier + std::string(3, '\0') + static_cast<char>(text.size() + 1) +
             std::string(3, '\0') + text;
  }
  return bytes + std::string(300, 'x');
}

std::string TextOf(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

Variant CallWith(const ObjectRef& object, StringView member, Variant argument) {
  return object->Call(member, Arguments(&argument, 1));
}

ObjectRef PlaylistFixture::NewPlayList(std::int32_t type) {
  const ObjectRef created = component.Create(u"PlayList");
  created->Let(u"PlayListType", type);
  return created;
}

bool PlaylistFixture::Read(StringView path) {
  return ToBoolean(CallWith(playlist, u"ReadPlayList", String(path)));
}

bool PlaylistFixture::ReadText(StringView path, std::int32_t type, std::string_view text) {
  platform->AddFile(path, text);
  playlist = NewPlayList(type);
  return Read(path);
}

std::string PlaylistFixture::Property(StringView name) {
  return Utf8(ToText(playlist->Get(name)));
}

std::int32_t PlaylistFixture::Kept() {
  return ToInt32(ToObject(playlist->Get(u"PlayListEntries"))->Get(u"TotalSongs"));
}

std::int32_t PlaylistFixture::CollectionType() {
  return ToInt32(ToObject(playlist->Get(u"PlayListEntries"))->Get(u"CollectionType"));
}

ObjectRef PlaylistFixture::EntryAt(std::int32_t index) {
  return ToObject(CallWith(ToObject(playlist->Get(u"PlayListEntries")), u"Item", index));
}

std::string PlaylistFixture::Field(std::int32_t index, StringView name) {
  if (index > Kept()) return "no entry";
  return Utf8(ToText(EntryAt(index)->Get(name)));
}

Lines PlaylistFixture::Fields(StringView name) {
  Lines fields;
  for (std::int32_t i = 1; i <= Kept(); ++i) fields.push_back(Field(i, name));
  return fields;
}

Lines PlaylistFixture::Registered() {
  Lines lines;
  for (const MediaRecord& record : platform->Records()) {
    lines.push_back(Utf8(record.source + u" | " + record.destination + u" | " + record.category));
  }
  return lines;
}

}  // namespace norvo

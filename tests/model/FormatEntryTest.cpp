#include "model/FormatEntry.h"

#include "model/AsxEntry.h"
#include "model/Entry.h"
#include "model/ModelTest.h"
#include "tags/TagBuilder.h"

namespace norvo {
namespace {

constexpr StringView kClasses[] = {u"AsxEntry", u"M3UEntry", u"PlsEntry"};

/// A public member of the format entries and the plain name of the same field.
struct Forward {
  StringView outer;
  StringView inner;
  Variant value;
};

const Forward kForwards[] = {
    {u"Entry_AlbumName", u"AlbumName", String(u"album")},
    {u"Entry_ArtistName", u"ArtistName", String(u"artist")},
    {u"Entry_CreationDate", u"CreationDate", String(u"2001")},
    {u"Entry_Duration", u"Duration", String(u"180")},
    {u"Entry_EntryType", u"EntryType", std::int32_t{3}},
    {u"Entry_Genre", u"Genre", String(u"Rock")},
    {u"Entry_SongTitle", u"SongTitle", String(u"title")},
    {u"Entry_TrackNumber", u"TrackNumber", String(u"7")},
    {u"Entry_SongName", u"SongName", String(u"song")},
    {u"Entry_URLType", u"Urltype", std::int32_t{4}},
    {u"Entry_SourceURL", u"SourceURL", String(u"x\\f.mp3")},
    {u"Entry_FileName", u"FileName", String(u"f.mp3")},
};

/// Runs the same test on an object of each format entry class.
class FormatEntryTest : public LibraryTest, public ::testing::WithParamInterface<StringView> {
 protected:
  String Text(StringView name) { return TextOf(object, name); }
  /// A member of the plain entry, which works on a format entry too.
  static const Member& Plain(StringView name) { return *Entry::Interface().Find(name); }

  const ObjectRef reference = component.Create(GetParam());
  AutomationObject& object = *reference;
  FormatEntry& entry = dynamic_cast<FormatEntry&>(object);
};

std::string NameOfClass(const ::testing::TestParamInfo<StringView>& info) {
  return Utf8(info.param);
}
INSTANTIATE_TEST_SUITE_P(Classes, FormatEntryTest, ::testing::ValuesIn(kClasses), NameOfClass);

TEST_P(FormatEntryTest, WhatIsSetByNameIsReadUnderThePlainNameOfAnEntry) {
  for (const Forward& row : kForwards) {
    SCOPED_TRACE(Utf8(row.outer));
    object.Let(row.outer, row.value);
    EXPECT_EQ(Plain(row.inner).call(object, {}), row.value);
    EXPECT_EQ(object.Get(row.outer), row.value);
  }
}

TEST_P(FormatEntryTest, WhatIsSetUnderThePlainNameOfAnEntryIsReadByName) {
  for (const Forward& row : kForwards) {
    SCOPED_TRACE(Utf8(row.outer));
    Plain(row.inner).let(object, row.value);
    EXPECT_EQ(object.Get(row.outer), row.value);
  }
}

TEST_P(FormatEntryTest, NoMemberTouchesAnotherField) {
  for (const Forward& row : kForwards) {
    SCOPED_TRACE(Utf8(row.outer));
    const auto other = std::dynamic_pointer_cast<FormatEntry>(component.Create(GetParam()));
    other->Let(row.outer, row.value);
    for (const Forward& rest : kForwards) {
      if (rest.outer == row.outer || rest.outer == u"Entry_FileName") continue;
      EXPECT_EQ(ToText(other->Get(rest.outer)),
                std::holds_alternative<String>(rest.value) ? u"" : u"0")
          << Utf8(rest.outer);
    }
  }
}

TEST_P(FormatEntryTest, TheFieldsAreThoseOfAnEntry) {
  EntryFields& face = entry;
  face.SetAlbumName(u" album ");
  face.SetArtistName(u" artist ");
  face.SetSongName(u" song ");
  face.SetCreationDate(u"2001");
  face.SetDuration(std::int32_t{5});
  face.SetEntryType(3);
  face.SetGenre(u"Rock");
  face.SetNativeFormat(8);
  face.SetSongTitle(u"title");
  face.SetTrackNumber(u"7");
  face.SetUrltype(4);
  face.SetSourceURL(u"x\\f.mp3");
  face.SetFileName(u"f.mp3");
  const std::pair<StringView, StringView> rows[] = {
      {u"Entry_AlbumName", u"album"},    {u"Entry_ArtistName", u"artist"},
      {u"Entry_SongName", u"song"},      {u"Entry_CreationDate", u"2001"},
      {u"Entry_Duration", u"5"},         {u"Entry_EntryType", u"3"},
      {u"Entry_Genre", u"Rock"},         {u"Entry_SongTitle", u"title"},
      {u"Entry_TrackNumber", u"7"},      {u"Entry_URLType", u"4"},
      {u"Entry_SourceURL", u"x\\f.mp3"}, {u"Entry_FileName", u"f.mp3"}};
  for (const auto& [name, text] : rows) EXPECT_TEXT(Text(name), text);
  EXPECT_EQ(face.NativeFormat(), 8);
  face.SetPlayListName(u"Mix.m3u");
  EXPECT_TEXT(face.PlayListName(), u"");
  EXPECT_TEXT(entry.StoredPlayListName(), u"Mix");
}

TEST_P(FormatEntryTest, TheNativeFormatCanOnlyBeSetByName) {
  object.Let(u"Entry_NativeFormat", std::int32_t{12});
  EXPECT_EQ(entry.NativeFormat(), 12);
  EXPECT_EQ(NumberRaisedBy([&] { object.Get(u"Entry_NativeFormat"); }), error::kNoSuchMember);
}

TEST_P(FormatEntryTest, TheFileSizeCanOnlyBeRead) {
  EXPECT_EQ(NumberRaisedBy([&] { object.Let(u"Entry_FileSize", 5.0); }), error::kNoSuchMember);
  platform->AddFile(u"C:\\a.mp3", "12345");
  object.Let(u"Entry_SourceURL", String(u"C:\\a.mp3"));
  EXPECT_EQ(object.Get(u"Entry_FileSize"), Variant(5.0));
  EXPECT_TEXT(Text(u"Entry_FileName"), u"a.mp3");
}

TEST_P(FormatEntryTest, ThePlayListNameIsStoredAndReadAsEmpty) {
  SetAll(object,
         {{u"Entry_EntryType", std::int32_t{4}}, {u"Entry_PlayListName", String(u"Mix.pls")}});
  EXPECT_TEXT(Text(u"Entry_PlayListName"), u"");
  EXPECT_TEXT(entry.StoredPlayListName(), u"Mix");
}

TEST_P(FormatEntryTest, MethodsAreForwardedWithTheirResults) {
  platform->AddFile(u"C:\\a.mp3", Id3(TextFrame("TPE1", "Singer")));
  EXPECT_EQ(object.Call(u"Entry_GetID3TagInfo"), Variant(false));
  object.Let(u"Entry_SourceURL", String(u"C:\\a.mp3"));
  EXPECT_EQ(object.Call(u"Entry_GetID3TagInfo"), Variant(true));
  EXPECT_TEXT(Text(u"Entry_ArtistName"), u"Singer");
  EXPECT_TEXT(ToText(object.Call(u"Entry_DestinationPath")), u"Singer\\a.mp3");
}

TEST_P(FormatEntryTest, TheBareNamesOfTheEntryAreNoMembers) {
  for (const StringView name : {u"AlbumName", u"EntryType", u"Urltype", u"NativeFormat", u"Name"}) {
    EXPECT_EQ(NumberRaisedBy([&] { object.Get(name); }), error::kNoSuchMember) << Utf8(name);
  }
}

TEST_P(FormatEntryTest, AFreshEntryHasNoTypeAndNoExtendedInfo) {
  EXPECT_EQ(object.Get(u"HasExtendedInfo"), Variant(false));
  EXPECT_EQ(object.Get(u"Entry_EntryType"), Variant(std::int32_t{0}));
  object.Let(u"HasExtendedInfo", true);
  EXPECT_EQ(object.Get(u"HasExtendedInfo"), Variant(true));
  object.Let(u"HasExtendedInfo", std::int32_t{0});
  EXPECT_EQ(object.Get(u"HasExtendedInfo"), Variant(false));
}

using AsxEntryTest = FormatEntryTest;
INSTANTIATE_TEST_SUITE_P(Asx, AsxEntryTest, ::testing::Values(StringView(u"AsxEntry")),
                         NameOfClass);

TEST_P(AsxEntryTest, PlainFieldsAreTheirOwn) {
  const StringView names[] = {u"ASX_Author",   u"Copyright", u"HREF",
                              u"ASX_SongName", u"ASX_Title", u"Abstract"};
  for (const StringView name : names) {
    SCOPED_TRACE(Utf8(name));
    EXPECT_EQ(object.Get(name), Variant(String()));
    object.Let(name, String(u" of ") + String(name));
  }
  for (const StringView name : names) EXPECT_TEXT(Text(name), String(u" of ") + String(name));
  EXPECT_TEXT(entry.SongName(), u"");
  EXPECT_TEXT(entry.SongTitle(), u"");
  EXPECT_TEXT(entry.ArtistName(), u"");
}

TEST_P(AsxEntryTest, TheLongerOfBothArtistsWinsAndTheInnerOneOnEqualLength) {
  const struct {
    StringView outer, inner;
  } pairs[] = {{u"ASX_Artist", u"Entry_ArtistName"}, {u"ASX_Album", u"Entry_AlbumName"}};
  const struct {
    StringView later, answer;
  } rows[] = {{u"ABC", u"ABC"}, {u"A", u"AB"}, {u"XY", u"XY"}, {u"", u"AB"}, {u"  A  ", u"AB"}};
  for (const auto& pair : pairs) {
    for (const auto& row : rows) {
      SCOPED_TRACE(Utf8(pair.outer) + " " + Utf8(row.later));
      object.Let(pair.outer, String(u"AB"));
      EXPECT_TEXT(Text(pair.outer), u"AB");
      EXPECT_TEXT(Text(pair.inner), u"AB");
      object.Let(pair.inner, String(row.later));
      EXPECT_TEXT(Text(pair.outer), row.answer);
    }
  }
}

TEST_P(AsxEntryTest, AnArtistWithBlanksAroundItIsAnsweredAsItWasGiven) {
  for (const StringView name : {u"ASX_Artist", u"ASX_Album"}) {
    object.Let(name, String(u" AB "));  // longer than the trimmed inner name
    EXPECT_TEXT(Text(name), u" AB ");
  }
}

TEST_P(AsxEntryTest, ASongNameIsKeptOnceHoweverItReadsBack) {
  for (const StringView name : {u"song", u"   ", u""}) {
    object.Let(u"Entry_SongName", String(name));
    EXPECT_TEXT(Text(u"Entry_SongName"), name == u"song" ? u"song" : u"");
  }
  entry.SetArtistName(u"A");
  object.Let(u"Entry_SongName", String(u"  "));
  entry.SongTitle();
  EXPECT_TEXT(entry.SongTitle(), u"A -   ");
}

TEST_P(AsxEntryTest, FreshValuesAreZeroOrEmptyOfTheirTypes) {
  EXPECT_EQ(object.Get(u"BitRate"), Variant(std::int32_t{0}));
  EXPECT_EQ(object.Get(u"PlayCount"), Variant(std::int32_t{0}));
  EXPECT_EQ(object.Get(u"MediaAttribute"), Variant(std::int16_t{0}));
  EXPECT_EQ(object.Get(u"MediaType"), Variant(String()));
  EXPECT_EQ(object.Get(u"PlaylistAttribute"), Variant(String()));
  EXPECT_EQ(object.Get(u"DigitallySecure"), Variant());
}

TEST_P(AsxEntryTest, ValuesConvertToTheStoredType) {
  const struct {
    StringView name;
    Variant given, stored;
  } rows[] = {{u"BitRate", String(u"128"), std::int32_t{128}},
              {u"BitRate", String(u" 128000 "), std::int32_t{128000}},
              {u"BitRate", 2.5, std::int32_t{2}},
              {u"PlayCount", String(u"-3"), std::int32_t{-3}},
              {u"PlayCount", true, std::int32_t{-1}},
              {u"MediaAttribute", String(u"32767"), std::int16_t{32767}},
              {u"MediaAttribute", 3.5, std::int16_t{4}},
              {u"MediaType", std::int32_t{5}, String(u"5")},
              {u"MediaType", true, String(u"True")},
              {u"PlaylistAttribute", 1.5, String(u"1.5")},
              {u"PlaylistAttribute", Variant(), String()}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.name) + " " + Utf8(ToText(row.given)));
    object.Let(row.name, row.given);
    EXPECT_EQ(object.Get(row.name), row.stored);
  }
}

TEST_P(AsxEntryTest, ValuesThatDoNotConvertRaiseAndChangeNothing) {
  const struct {
    StringView name;
    Variant given;
    std::int32_t number;
  } rows[] = {{u"BitRate", String(u"fast"), error::kTypeMismatch},
              {u"BitRate", String(), error::kTypeMismatch},
              {u"BitRate", String(u"3000000000"), error::kOverflow},
              {u"PlayCount", String(u"many"), error::kTypeMismatch},
              {u"PlayCount", 1e10, error::kOverflow},
              {u"MediaAttribute", String(u"x"), error::kTypeMismatch},
              {u"MediaAttribute", std::int32_t{32768}, error::kOverflow},
              {u"MediaType", reference, error::kTypeMismatch},
              {u"PlaylistAttribute", reference, error::kTypeMismatch}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.name));
    object.Let(row.name, std::int32_t{7});
    const Variant before = object.Get(row.name);
    EXPECT_EQ(NumberRaisedBy([&] { object.Let(row.name, row.given); }), row.number);
    EXPECT_EQ(object.Get(row.name), before);
  }
}

TEST_P(AsxEntryTest, AnObjectThatEndsSeesTheValueThatReplacedIt) {
  Variant seen;
  object.Let(u"DigitallySecure", EndingWith([&] { seen = object.Get(u"DigitallySecure"); }));
  object.Let(u"DigitallySecure", true);
  EXPECT_EQ(seen, Variant(true));
}

TEST_P(AsxEntryTest, DigitallySecureKeepsAnyValueAsGiven) {
  for (const Variant& value : {Variant(true), Variant(String(u" yes ")), Variant(std::int16_t{5}),
                               Variant(2.5), Variant(ObjectRef()), Variant()}) {
    object.Let(u"DigitallySecure", value);
    EXPECT_EQ(object.Get(u"DigitallySecure"), value);
  }
}

}  // namespace
}  // namespace norvo

#include "library/Library.h"

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"
#include "support/RaisedErrors.h"

namespace norvo {
namespace {

class CreationTest : public LibraryTest {};

TEST_F(CreationTest, EveryPublicClassIsCreatedByItsNameInAnyCase) {
  struct {
    StringView name;
    StringView className;
  } constexpr rows[] = {
      {u"helperMan", u"helperMan"},   {u"HELPERMAN", u"helperMan"},
      {u"PlayList", u"PlayList"},     {u"playlist", u"PlayList"},
      {u"PlayLists", u"PlayLists"},   {u"playlists", u"PlayLists"},
      {u"Entries", u"Entries"},       {u"Entry", u"Entry"},
      {u"AsxEntry", u"AsxEntry"},     {u"M3UEntry", u"M3UEntry"},
      {u"m3uentry", u"M3UEntry"},     {u"PlsEntry", u"PlsEntry"},
      {u"ArtistList", u"ArtistList"}, {u"ARTISTLIST", u"ArtistList"},
      {u"ArtistItem", u"ArtistItem"},
  };
  for (const auto& row : rows) {
    const ObjectRef object = component.Create(row.name);
    ASSERT_NE(object, nullptr) << Utf8(row.name);
    EXPECT_TEXT(object->ClassName(), row.className);
    EXPECT_NE(object->Members(), nullptr) << Utf8(row.name);
    EXPECT_NE(component.Create(row.name), object) << Utf8(row.name);
  }
}

TEST_F(CreationTest, AnUnknownNameIsErrorFourHundredAndTwentyNine) {
  for (const StringView name :
       {u"", u"Nothing", u"PlayList ", u"PlayLis", u"PlayListt", u"NorvoPlayList.PlayList",
        u"Component", u"MP3TagReader", u"Artist", u"ObjectList"}) {
    try {
      component.Create(name);
      FAIL() << Utf8(name);
    } catch (const RunTimeError& failure) {
      EXPECT_EQ(failure.Number(), 429) << Utf8(name);
      EXPECT_TEXT(failure.Description(), u"ActiveX component can't create object");
    }
  }
}

TEST_F(CreationTest, NamesAndTextsInUtf8DoAsWell) {
  platform->ConfigureProduct();
  platform->AddFile(u"C:\\\u00C4pfel.mp3", "12345");
  platform->AddFile(u"C:\\Z\u00FCrich.m3u", "C:\\\xC4pfel.mp3\r\n");
  const ObjectRef playlist = component.Create("playlist");
  playlist->Let("PlayListType", 6);
  EXPECT_TRUE(ToBoolean(playlist->Call("ReadPlayList", "C:\\Z\xC3\xBCrich.m3u")));
  EXPECT_EQ(ToUtf8Text(playlist->Get("PlayListName")), "Z\xC3\xBCrich");
  const ObjectRef entries = ToObject(playlist->Get("PlayListEntries"));
  const ObjectRef entry = ToObject(entries->Call("Item", 1));
  EXPECT_EQ(ToUtf8Text(entry->Get("Entry_SourceURL")), "C:\\\xC3\x84pfel.mp3");
}

TEST_F(CreationTest, AnUnknownNameInUtf8IsErrorFourHundredAndTwentyNineToo) {
  EXPECT_EQ(NumberRaisedBy([&] { return component.Create("Nothing"); }),
            error::kCannotCreateObject);
}

TEST_F(CreationTest, TwoLibrariesOverTwoMachinesShareNothing) {
  const auto otherPlatform = std::make_shared<MemoryPlatform>();
  const auto other = OpenLibrary(otherPlatform);
  platform->ConfigureProduct();
  otherPlatform->ConfigureProduct();
  platform->AddFile(u"C:\\a.mp3", "12345");
  platform->AddFile(u"C:\\Mix.m3u", "C:\\a.mp3\r\n");
  const ObjectRef playlist = component.Create(u"PlayList");
  playlist->Let(u"PlayListType", std::int32_t{6});
  Variant path = String(u"C:\\Mix.m3u");
  EXPECT_TRUE(ToBoolean(playlist->Call(u"ReadPlayList", Arguments(&path, 1))));
  EXPECT_EQ(component.MediaBytes(), 5.0);
  EXPECT_EQ(other->MediaBytes(), 0.0);
  EXPECT_TRUE(otherPlatform->Records().empty());
  other->SetLogMode(3);
  EXPECT_EQ(component.Log().mode, 0);
}

}  // namespace
}  // namespace norvo

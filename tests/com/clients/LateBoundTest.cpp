// Drives every class by the names of its members, as a script does.

#include "clients/LateBound.h"

#include "clients/ClientTest.h"
#include "clients/OwnObject.h"

namespace norvo::clients {
namespace {

/// Everything starts from the name of a class.
class LateBoundTest : public ClientTest {
 protected:
  static LateBound New(const std::wstring& className) {
    CLSID type{};
    Held<IDispatch> made;
    EXPECT_EQ(::CLSIDFromProgID((L"NorvoPlayList." + className).c_str(), &type), S_OK);
    EXPECT_EQ(
        ::CoCreateInstance(type, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, made.ReceiveAny()),
        S_OK);
    return LateBound(made);
  }
};

TEST_F(LateBoundTest, EntriesTakeFieldsOfAnyType) {
  const LateBound entry = New(L"Entry");
  entry.Put(L"genre", Value(7L));
  EXPECT_EQ(entry.Get(L"GENRE").All(), L"7");
  entry.Put(L"EntryType", Value(L"3"));
  EXPECT_EQ(entry.Get(L"EntryType").Type(), VT_I4);
  EXPECT_EQ(entry.Get(L"FileSize").Type(), VT_R8);
  EXPECT_EQ(entry.Call(L"GetID3TagInfo").Type(), VT_BOOL);
  EXPECT_EQ(entry.Call(L"DestinationPath").Type(), VT_BSTR);
  for (const wchar_t* const name : {L"AsxEntry", L"M3UEntry", L"PlsEntry"}) {
    const LateBound format = New(name);
    format.Put(L"Entry_SongName", Value(L"Aria"));
    EXPECT_EQ(format.Get(L"Entry_SongName").All(), L"Aria");
    format.Put(L"HasExtendedInfo", Value(1L));
    EXPECT_EQ(format.Get(L"HasExtendedInfo").All(), L"True");
    format.Get(L"Entry_NativeFormat");
    EXPECT_EQ(format.Status(), DISP_E_MEMBERNOTFOUND);
    format.Get(L"SongName");
    EXPECT_EQ(format.Status(), DISP_E_UNKNOWNNAME);
  }
}

TEST_F(LateBoundTest, CollectionsGiveBackWhatTheyWereGiven) {
  OwnObject own({{L"Entry_EntryType", Value(2L)}, {L"TotalSongs", Value(5L)}});
  {
    const LateBound entries = New(L"Entries");
    const LateBound lists = New(L"PlayLists");
    entries.Put(L"CollectionType", Value(2L));
    const Value object(static_cast<IDispatch*>(&own));
    entries.Call(L"Add", {object.Get()});
    lists.Call(L"Add", {object.Get()});
    EXPECT_EQ(entries.Get(L"Count").Type(), VT_I2);
    EXPECT_EQ(entries.Get(L"Count").All(), L"1");
    EXPECT_EQ(lists.Get(L"TotalSongs").All(), L"5");
    EXPECT_EQ(entries.Object(L"Item", {Value(1L).Get()}).Face().Get(), &own);
    EXPECT_EQ(lists.Object(L"Item", {Value(L"1").Get()}).Face().Get(), &own);
    EXPECT_FALSE(entries.Object(L"Item", {Value(2L).Get()}).Face()) << "nothing past the end";
    entries.Call(L"Item", {Value(0L).Get()});
    EXPECT_EQ(static_cast<std::uint32_t>(entries.Status()), 0x800A0005U);
    EXPECT_EQ(entries.Description(), L"Invalid procedure call or argument");
  }
  EXPECT_EQ(own.References(), 0U);
}

TEST_F(LateBoundTest, APlayListIsReachedThroughItsEntries) {
  const LateBound list = New(L"PlayList");
  list.Put(L"PlayListType", Value(4L));
  const LateBound entry = New(L"PlsEntry");
  entry.Put(L"Entry_EntryType", Value(4L));
  const LateBound entries = list.Object(L"PlayListEntries");
  entries.Put(L"CollectionType", Value(4L));
  entries.Call(L"Add", {Value(entry.Face().Get()).Get()});
  EXPECT_EQ(list.Get(L"TotalSongs").All(), L"1");
  EXPECT_TRUE(IsSame(entries.Object(L"Item", {Value(1L).Get()}).Face(), entry.Face()));
}

TEST_F(LateBoundTest, TheHelperListsPathsAsVariants) {
  const LateBound helper = New(L"helperMan");
  EXPECT_EQ(helper.Call(L"GetPLSList").Type(), VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(helper.Call(L"ParseM3UHeader", {Value(L"C:\\No such.m3u").Get()}).All(), L"0");
  helper.Call(L"PlayListToIni");
  EXPECT_EQ(static_cast<std::uint32_t>(helper.Status()), 0x800A01C2U);
  EXPECT_EQ(helper.Description(), L"Wrong number of arguments or invalid property assignment");
}

TEST_F(LateBoundTest, AListFillsVariablesOfTheCaller) {
  const LateBound list = New(L"ArtistList");
  const Value key(L"Bach");
  list.Call(L"Add", {key.Get(), Value(1685L).Get()});
  Value any;
  Text text;
  long number = 0;
  const Value found =
      list.Call(L"SearchByID", {key.Get(), LateBound::Variable(VT_VARIANT, any.Place())});
  EXPECT_EQ(found.All(), L"True");
  EXPECT_EQ(any.All(), L"1685");
  list.Call(L"SearchByID", {key.Get(), LateBound::Variable(VT_BSTR, text.Place())});
  EXPECT_EQ(text.All(), L"1685");
  list.Call(L"SearchByID", {key.Get(), LateBound::Variable(VT_I4, &number)});
  EXPECT_EQ(number, 1685);
  IDispatch* current = nullptr;
  list.Call(L"SearchByValue", {Value(2000L).Get(), LateBound::Variable(VT_DISPATCH, &current)});
  ASSERT_NE(current, nullptr);
  current->Release();
  Value unset;
  list.Call(L"SearchByValue", {Value(1L).Get(), LateBound::Variable(VT_VARIANT, unset.Place())});
  EXPECT_EQ(unset.Type(), VT_DISPATCH);
  EXPECT_EQ(unset.Get().pdispVal, nullptr);
}

TEST_F(LateBoundTest, NodesAreSetAndNotPut) {
  const LateBound first = New(L"ArtistItem");
  const LateBound second = New(L"ArtistItem");
  first.Set(L"NextItem", second);
  EXPECT_EQ(first.Status(), S_OK);
  EXPECT_TRUE(IsSame(first.Object(L"mNextItem").Face(), second.Face()));
  first.Put(L"Value", Value(L"12"));
  EXPECT_EQ(first.Get(L"mValue").Type(), VT_I4);
  first.Put(L"Value", Value(L"many"));
  EXPECT_EQ(static_cast<std::uint32_t>(first.Status()), 0x800A000DU);
}

}  // namespace
}  // namespace norvo::clients

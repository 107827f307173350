// Drives every class through its table of functions, with nothing but the generated header.

#include "clients/ClientTest.h"
#include "clients/OwnObject.h"

namespace norvo::clients {
namespace {

using EarlyBoundTest = ClientTest;

/// The description of the error that the last call has left.
std::wstring LastDescription() {
  Held<IErrorInfo> information;
  Text description;
  if (::GetErrorInfo(0, information.Receive()) != S_OK) return L"none";
  information->GetDescription(description.Receive());
  return description.All();
}

TEST_F(EarlyBoundTest, AnEntryKeepsItsFields) {
  const auto entry = Create<::Entry, _Entry>();
  Text text;
  EXPECT_EQ(entry->put_AlbumName(Text(std::wstring(L" a\0b", 4)).Get()), S_OK);
  EXPECT_EQ(entry->get_AlbumName(text.Receive()), S_OK);
  EXPECT_EQ(text.All(), L"a") << "cut at the NUL and trimmed";
  EXPECT_EQ(entry->put_CreationDate(Text(std::wstring(L" a\0b", 4)).Get()), S_OK);
  EXPECT_EQ(entry->get_CreationDate(text.Receive()), S_OK);
  EXPECT_EQ(text.All(), std::wstring(L" a\0b", 4)) << "as it is";
  EXPECT_EQ(entry->put_ArtistName(Text(L"Bach").Get()), S_OK);
  EXPECT_EQ(entry->put_SongName(Text(L"Aria").Get()), S_OK);
  EXPECT_EQ(entry->get_SongTitle(text.Receive()), S_OK);
  EXPECT_EQ(text.All(), L"") << "composed by the first call, handed out by the next";
  EXPECT_EQ(entry->get_SongTitle(text.Receive()), S_OK);
  EXPECT_EQ(text.All(), L"Bach - Aria");
  EXPECT_EQ(entry->put_PlayListName(Text(L"List").Get()), S_OK);
  EXPECT_EQ(entry->get_PlayListName(text.Receive()), S_OK);
  EXPECT_EQ(text.All(), L"");
  Value duration;
  EXPECT_EQ(entry->put_Duration(Value(217L).Get()), S_OK);
  EXPECT_EQ(entry->get_Duration(duration.Receive()), S_OK);
  EXPECT_EQ(duration.Type(), VT_BSTR);
  EXPECT_EQ(duration.All(), L"217");
  long number = 3;
  EXPECT_EQ(entry->put_EntryType(&number), S_OK);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(entry->get_EntryType(&number), S_OK);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(entry->put_NativeFormat(-5), S_OK);
  EXPECT_EQ(entry->get_NativeFormat(&number), S_OK);
  EXPECT_EQ(number, -5);
  double size = 7;
  EXPECT_EQ(entry->get_FileSize(&size), S_OK);
  EXPECT_EQ(size, 0);
}

TEST_F(EarlyBoundTest, AFormatEntryIsAnEntryToo) {
  const auto asx = Create<::AsxEntry, _AsxEntry>();
  EXPECT_EQ(asx->put_Entry_Genre(Text(L"Rock").Get()), S_OK);
  EXPECT_EQ(asx->put_Copyright(Text(L"(c)").Get()), S_OK);
  EXPECT_EQ(asx->put_BitRate(Value(L"128").Get()), S_OK);
  VARIANT_BOOL extended = VARIANT_FALSE;
  EXPECT_EQ(asx->put_HasExtendedInfo(VARIANT_TRUE), S_OK);
  EXPECT_EQ(asx->get_HasExtendedInfo(&extended), S_OK);
  EXPECT_EQ(extended, VARIANT_TRUE);
  Value rate;
  EXPECT_EQ(asx->get_BitRate(rate.Receive()), S_OK);
  EXPECT_EQ(rate.Type(), VT_I4);
  EXPECT_EQ(rate.All(), L"128");
  const auto entry = asx.As<_Entry>();
  ASSERT_TRUE(entry);
  Text genre;
  EXPECT_EQ(entry->get_Genre(genre.Receive()), S_OK);
  EXPECT_EQ(genre.All(), L"Rock");
  EXPECT_TRUE(IsSame(asx, entry));

  const auto m3u = Create<::M3UEntry, _M3UEntry>();
  const auto pls = Create<::PlsEntry, _PlsEntry>();
  EXPECT_EQ(m3u->put_Entry_TrackNumber(Text(L"7").Get()), S_OK);
  EXPECT_EQ(pls->put_Entry_TrackNumber(Text(L"8").Get()), S_OK);
  EXPECT_EQ(m3u.As<_Entry>()->get_TrackNumber(genre.Receive()), S_OK);
  EXPECT_EQ(genre.All(), L"7");
  EXPECT_EQ(pls.As<_Entry>()->get_TrackNumber(genre.Receive()), S_OK);
  EXPECT_EQ(genre.All(), L"8");
  EXPECT_EQ(pls->put_Entry_NativeFormat(4), S_OK);
}

TEST_F(EarlyBoundTest, EntriesHoldTheLibrarysObjectsAndTheClientsOwn) {
  OwnObject own({{L"Entry_EntryType", Value(3L)}, {L"Name", Value(L"Mine")}});
  OwnObject other({{L"Entry_EntryType", Value(4L)}});
  {
    const auto entries = Create<::Entries, _Entries>();
    const auto m3u = Create<::M3UEntry, _M3UEntry>();
    long number = 3;
    EXPECT_EQ(m3u->put_Entry_EntryType(&number), S_OK);
    EXPECT_EQ(entries->put_CollectionType(3), S_OK);
    EXPECT_EQ(entries->Add(&own), S_OK);
    EXPECT_EQ(entries->Add(&other), S_OK);
    EXPECT_EQ(entries->Add(m3u.Get()), S_OK);
    short count = 0;
    EXPECT_EQ(entries->get_Count(&count), S_OK);
    EXPECT_EQ(count, 2) << "the other has another type";
    Held<IDispatch> item;
    long index = 1;
    EXPECT_EQ(entries->Item(&index, item.Receive()), S_OK);
    EXPECT_EQ(item.Get(), &own);
    index = 2;
    EXPECT_EQ(entries->Item(&index, item.Receive()), S_OK);
    EXPECT_TRUE(IsSame(item, m3u));
    EXPECT_EQ(index, 2);
    VARIANT_BOOL removed = VARIANT_TRUE;
    Text pattern(L"M*");
    EXPECT_EQ(entries->Remove(pattern.Place(), &removed), S_OK);
    EXPECT_EQ(removed, VARIANT_FALSE);
    EXPECT_EQ(entries->get_TotalSongs(&number), S_OK);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(own.References(), 0U);
    EXPECT_EQ(entries->Add(&own), S_OK);
    EXPECT_EQ(own.References(), 1U);
  }
  EXPECT_EQ(own.References(), 0U);
  EXPECT_EQ(other.References(), 0U);
}

TEST_F(EarlyBoundTest, PlayListsAddUpTheirSongs) {
  OwnObject own({{L"TotalSongs", Value(41L)}, {L"Name", Value(L"Mine")}});
  {
    const auto lists = Create<::PlayLists, _PlayLists>();
    const auto list = Create<::PlayList, _PlayList>();
    EXPECT_EQ(lists->Add(&own), S_OK);
    EXPECT_EQ(lists->Add(list.Get()), S_OK);
    EXPECT_EQ(lists->Add(nullptr), S_OK) << "nothing is left out";
    short count = 0;
    long number = 0;
    EXPECT_EQ(lists->get_Count(&count), S_OK);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(lists->get_TotalSongs(&number), S_OK);
    EXPECT_EQ(number, 41);
    EXPECT_EQ(lists->get_TotalPlayLists(&number), S_OK);
    EXPECT_EQ(number, 2);
    Held<IDispatch> item;
    number = 1;
    EXPECT_EQ(lists->Item(&number, item.Receive()), S_OK);
    EXPECT_EQ(item.Get(), &own);
    number = 2;
    EXPECT_EQ(lists->Item(&number, item.Receive()), S_OK);
    EXPECT_TRUE(IsSame(item, list));
    number = 0;
    EXPECT_EQ(static_cast<std::uint32_t>(lists->Item(&number, item.Receive())), 0x800A0005U);
    EXPECT_EQ(LastDescription(), L"Invalid procedure call or argument");
  }
  EXPECT_EQ(own.References(), 0U);
}

TEST_F(EarlyBoundTest, APlayListHasOneSetOfEntries) {
  const auto list = Create<::PlayList, _PlayList>();
  Held<_Entries> entries, again;
  EXPECT_EQ(list->put_PlayListType(3), S_OK);
  EXPECT_EQ(list->get_PlayListEntries(entries.Receive()), S_OK);
  EXPECT_EQ(list->get_PlayListEntries(again.Receive()), S_OK);
  EXPECT_EQ(entries.Get(), again.Get());
  Value value;
  EXPECT_EQ(list->put_PlayListName(Value(L"Best of.m3u").Get()), S_OK);
  EXPECT_EQ(list->get_PlayListName(value.Receive()), S_OK);
  EXPECT_EQ(value.All(), L"Best of");
  EXPECT_EQ(list->put_TotalSongs(Value(9L).Get()), S_OK);
  EXPECT_EQ(list->get_TotalSongs(value.Receive()), S_OK);
  EXPECT_EQ(value.All(), L"0") << "counted, whatever was set";
  Text text;
  EXPECT_EQ(list->put_ASX_Title(Text(L"Title").Get()), S_OK);
  EXPECT_EQ(list->get_ASX_Title(text.Receive()), S_OK);
  EXPECT_EQ(text.All(), L"Title");
}

TEST_F(EarlyBoundTest, AFileThatIsNotThereIsNotRead) {
  const auto list = Create<::PlayList, _PlayList>();
  Text path(L"C:\\No such folder\\list.m3u");
  BSTR const before = path.Get();
  VARIANT_BOOL done = VARIANT_TRUE;
  EXPECT_EQ(list->put_PlayListType(3), S_OK);
  EXPECT_EQ(list->ReadPlayList(path.Place(), &done), S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);
  EXPECT_EQ(list->ReadGeneric(path.Place(), &done), S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);
  EXPECT_EQ(path.Get(), before) << "a variable that nobody changed";
  long type = 3;
  Text made(L"before");
  EXPECT_EQ(list->GetNewPlayListPath(Text(L"list").Get(), &type, made.Receive()), S_OK);
  EXPECT_EQ(type, 3);
}

TEST_F(EarlyBoundTest, TheHelperNamesFilesAndListsThem) {
  const auto helper = Create<::helperMan, _helperMan>();
  Text text;
  EXPECT_EQ(helper->PlayListToIni(Text(L"C:\\My Music\\Best.m3u").Get(), text.Receive()), S_OK);
  EXPECT_NE(text.All(), L"");
  long type = 7;
  EXPECT_EQ(helper->ParsePLSHeader(Text(L"C:\\No such.pls").Get(), &type), S_OK);
  EXPECT_EQ(type, 5) << "whatever is not of the other program";
  type = 7;
  EXPECT_EQ(helper->ParseM3UHeader(Text(L"C:\\No such.m3u").Get(), &type), S_OK);
  EXPECT_EQ(type, 0);
  Text first(L"a"), second(L"b"), third(L"c");
  EXPECT_EQ(helper->DataGrabber(first.Place(), second.Place(), third.Place(), text.Receive()),
            S_OK);
  EXPECT_EQ(first.All() + second.All() + third.All() + text.All(), L"abc");
  SAFEARRAY* paths = nullptr;
  ASSERT_EQ(helper->GetPLSList(&paths), S_OK);
  VARTYPE element = VT_EMPTY;
  EXPECT_EQ(::SafeArrayGetVartype(paths, &element), S_OK);
  EXPECT_EQ(element, VT_BSTR);
  ::SafeArrayDestroy(paths);
}

TEST_F(EarlyBoundTest, AListFindsTheValuesOfItsKeys) {
  const auto list = Create<::ArtistList, _ArtistList>();
  Value key(L"Bach"), value(1685L);
  EXPECT_EQ(list->Add(key.Place(), value.Place()), S_OK);
  Value sought;
  VARIANT_BOOL found = VARIANT_FALSE;
  EXPECT_EQ(list->SearchByID(key.Get(), sought.Place(), &found), S_OK);
  EXPECT_EQ(found, VARIANT_TRUE);
  EXPECT_EQ(sought.All(), L"1685");
  EXPECT_EQ(list->SearchByID(Value(L"Haydn").Get(), sought.Place(), &found), S_OK);
  EXPECT_EQ(found, VARIANT_FALSE);
  Value larger(2000L);
  Held<_ArtistItem> current;
  EXPECT_EQ(list->SearchByValue(larger.Place(), current.Receive(), &found), S_OK);
  ASSERT_TRUE(current);
  Text name;
  EXPECT_EQ(current->get_KeyID(name.Receive()), S_OK);
  EXPECT_EQ(name.All(), L"Bach");
  long count = 0;
  EXPECT_EQ(list->get_Count(&count), S_OK);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(list->put_AllowOverWrite(VARIANT_TRUE), S_OK);
  EXPECT_EQ(list->get_AllowOverWrite(&found), S_OK);
  EXPECT_EQ(found, VARIANT_TRUE);
}

TEST_F(EarlyBoundTest, NodesAreLinkedByReference) {
  const auto first = Create<::ArtistItem, _ArtistItem>();
  auto second = Create<::ArtistItem, _ArtistItem>();
  EXPECT_EQ(first->putref_mNextItem(second.Get()), S_OK);
  _ArtistItem* variable = first.Get();
  EXPECT_EQ(second->putref_PreviousItem(&variable), S_OK);
  EXPECT_EQ(variable, first.Get());
  Held<_ArtistItem> next, previous;
  EXPECT_EQ(first->get_NextItem(next.Receive()), S_OK);
  EXPECT_EQ(next.Get(), second.Get());
  EXPECT_EQ(second->get_mPreviousItem(previous.Receive()), S_OK);
  EXPECT_EQ(previous.Get(), first.Get());
  // Two nodes that hold each other live for ever: the client has to part them.
  EXPECT_EQ(second->putref_mPreviousItem(nullptr), S_OK);
  EXPECT_EQ(second->get_mPreviousItem(previous.Receive()), S_OK);
  EXPECT_FALSE(previous);
}

TEST_F(EarlyBoundTest, AnErrorHasANumberAndADescription) {
  const auto item = Create<::ArtistItem, _ArtistItem>();
  long number = 7;
  EXPECT_EQ(item->put_mValue(Value(L"many").Get()), S_OK);
  EXPECT_EQ(static_cast<std::uint32_t>(item->get_Value(&number)), 0x800A000DU);
  EXPECT_EQ(LastDescription(), L"Type mismatch");
  Value huge(0L);
  huge.Place()->vt = VT_R8;
  huge.Place()->dblVal = 1e12;
  EXPECT_EQ(item->put_mValue(huge.Get()), S_OK);
  EXPECT_EQ(static_cast<std::uint32_t>(item->get_Value(&number)), 0x800A0006U);
  EXPECT_EQ(LastDescription(), L"Overflow");
  EXPECT_EQ(number, 7);
}

TEST_F(EarlyBoundTest, AValueMayBeAnObject) {
  OwnObject own({});
  {
    const auto item = Create<::ArtistItem, _ArtistItem>();
    EXPECT_EQ(item->putref_mValue(Value(static_cast<IDispatch*>(&own)).Get()), S_OK);
    Value back;
    EXPECT_EQ(item->get_mValue(back.Receive()), S_OK);
    EXPECT_EQ(back.Get().pdispVal, &own);
  }
  EXPECT_EQ(own.References(), 0U);
}

}  // namespace
}  // namespace norvo::clients

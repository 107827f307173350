// The system's script engines use every class and are closed; nothing of the library may be left.

#include "clients/ClientTest.h"
#include "clients/ScriptEngine.h"

namespace norvo::clients {
namespace {

using ScriptLeaksTest = ClientTest;

constexpr wchar_t kVisualBasic[] =
    LR"(
Class OwnEntry
  Public Entry_EntryType
  Public Name
  Public TotalSongs
End Class

Dim helper, list, lists, entries, entry, asx, m3u, pls, keys, first, second, mine, path, done
Set helper = library.Create("helperMan")
path = helper.PlayListToIni("C:\Best.m3u") & helper.ParseM3UHeader("C:\No such.m3u")
Set list = library.Create("PlayList")
list.PlayListType = 3
list.PlayListName = "Best"
Set entries = list.PlayListEntries
entries.CollectionType = 3
Set entry = library.Create("Entry")
entry.ArtistName = "Bach"
Set asx = library.Create("AsxEntry")
asx.BitRate = 128
Set pls = library.Create("PlsEntry")
pls.Entry_SongName = "Aria"
Set m3u = library.Create("M3UEntry")
m3u.Entry_EntryType = 3
entries.Add m3u
Set mine = New OwnEntry
mine.Entry_EntryType = 3
mine.Name = "Mine"
mine.TotalSongs = 5
entries.Add mine
Set lists = library.Create("PlayLists")
lists.Add list
lists.Add mine
Set keys = library.Create("ArtistList")
keys.Add "Bach", 1685
keys.Add "Haydn", 1732
Set first = library.Create("ArtistItem")
Set second = library.Create("ArtistItem")
Set first.mValue = asx
Set first.mNextItem = second
Dim item
Set item = entries.Item(2)
done = item.Name & " " & list.TotalSongs & " " & lists.TotalSongs & " " & keys.Count
)";

constexpr wchar_t kJavaScript[] =
    LR"(
var helper = library.Create("helperMan");
var path = helper.PlayListToIni("C:\\Best.m3u") + helper.ParseM3UHeader("C:\\No such.m3u");
var list = library.Create("PlayList");
list.PlayListType = 3;
list.PlayListName = "Best";
var entries = list.PlayListEntries;
entries.CollectionType = 3;
var entry = library.Create("Entry");
entry.ArtistName = "Bach";
var asx = library.Create("AsxEntry");
asx.BitRate = 128;
var pls = library.Create("PlsEntry");
pls.Entry_SongName = "Aria";
var m3u = library.Create("M3UEntry");
m3u.Entry_EntryType = 3;
entries.Add(m3u);
var mine = { Entry_EntryType: 3, Name: "Mine", TotalSongs: 5 };
entries.Add(mine);
var lists = library.Create("PlayLists");
lists.Add(list);
lists.Add(mine);
var keys = library.Create("ArtistList");
keys.Add("Bach", 1685);
keys.Add("Haydn", 1732);
var first = library.Create("ArtistItem");
var second = library.Create("ArtistItem");
first.mKeyID = "Bach";
var item = entries.Item(2);
var done = item.Name + " " + list.TotalSongs + " " + lists.TotalSongs + " " + keys.Count;
)";

struct Script {
  const wchar_t* language;
  const wchar_t* text;
};

TEST_F(ScriptLeaksTest, AClosedEngineLeavesNothingBehind) {
  for (const auto& [language, text] :
       {Script{L"VBScript", kVisualBasic}, Script{L"JScript", kJavaScript}}) {
    ScriptEngine engine(language);
    ASSERT_TRUE(engine.IsReady());
    EXPECT_EQ(engine.Run(text), L"");
    EXPECT_EQ(engine.Global(L"done"), L"Mine 2 7 2");
    EXPECT_GE(server.CountObjects(), 11) << "the script's, and the stand-ins for its own";
    EXPECT_EQ(server.CanUnloadNow(), S_FALSE);
    engine.Close();
    EXPECT_EQ(server.CountObjects(), 0);
  }
}

TEST_F(ScriptLeaksTest, AScriptThatStopsHalfWayLeavesNothingBehind) {
  ScriptEngine engine(L"VBScript");
  ASSERT_TRUE(engine.IsReady());
  EXPECT_NE(engine.Run(L"Dim item\n"
                       L"Set item = library.Create(\"ArtistItem\")\n"
                       L"item.Value = \"many\"\n"),
            L"");
  EXPECT_EQ(server.CountObjects(), 1);
}

TEST_F(ScriptLeaksTest, EnginesCanBeHostedSideBySide) {
  ScriptEngine first(L"VBScript"), second(L"JScript");
  ASSERT_TRUE(first.IsReady() && second.IsReady());
  EXPECT_EQ(first.Run(kVisualBasic), L"");
  EXPECT_EQ(second.Run(kJavaScript), L"");
  first.Close();
  EXPECT_EQ(second.Run(L"list.PlayListName = 'Later.m3u'; done = list.PlayListName;"), L"");
  EXPECT_EQ(second.Global(L"done"), L"Later");
}

}  // namespace
}  // namespace norvo::clients

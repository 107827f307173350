#include "readers/ItemResolver.h"

#include <algorithm>

#include "readers/PlaylistFixture.h"
#include "readers/TextLines.h"
#include "tags/TagBuilder.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// A playlist of each type from the same references, as a host would find it on the disk.
struct PlaylistOfKind {
  std::int32_t type;
  const char16_t* path;
  const char* member;  // in log lines
};

constexpr PlaylistOfKind kPlaylists[] = {
    {1, u"C:\\Lists\\Mix.asx", "AddEntry"}, {2, u"C:\\Lists\\Mix.m3u", "AddEntry"},
    {3, u"C:\\Lists\\Mix.m3u", "ReadM3U"},  {4, u"C:\\Lists\\Mix.pls", "ReadPLS"},
    {5, u"C:\\Lists\\Mix.pls", "ReadPLS"},  {6, u"C:\\Lists\\Mix.m3u", "ReadMMJB"},
};

std::string TextFor(std::int32_t type, const Lines& references) {
  Lines lines;
  if (type == 4 || type == 5) {
    lines = {"[playlist]", "NumberOfEntries=" + std::to_string(references.size())};
    for (std::size_t i = 0; i < references.size(); ++i) {
      lines.push_back("File" + std::to_string(i + 1) + "=" + references[i]);
    }
  } else if (type == 1 || type == 2) {
    for (const std::string& reference : references) {
      lines.insert(lines.end(), {"<Entry>", "<Ref Href=\"" + reference + "\"/>", "</Entry>"});
    }
  } else {
    lines = references;
  }
  return TextOf(lines);
}

class ItemResolverTest : public PlaylistFixture {
 protected:
  ItemResolverTest() {
    platform->AddDrive(u'Q', DriveType::RamDisk);
    platform->AddDrive(u'R', DriveType::Removable);
    platform->AddDrive(u'D', DriveType::CdRom);
    platform->AddDrive(u'N', DriveType::Network);
    for (const StringView path :
         {u"C:\\Music\\a.mp3", u"C:\\Lists\\Sub\\a.mp3", u"C:\\Lists\\here.mp3", u"Q:\\a.mp3"}) {
      platform->AddFile(path, UntaggedMedia());
    }
  }

  bool ReadReferences(const PlaylistOfKind& kind, const Lines& references) {
    return ReadText(kind.path, kind.type, TextFor(kind.type, references));
  }
};

struct ReferenceRow {
  const char* reference;
  const char* sourceUrl;  // null: dropped
  const char* urlType;
  const char* fileName;
  const char* fileSize;
  const char* registered;  // source; null: not registered
};

constexpr ReferenceRow kReferences[] = {
    {"C:\\Music\\a.mp3", "C:\\Music\\a.mp3", "0", "a.mp3", "200", "C:\\Music\\a.mp3"},
    {"c:\\music\\A.MP3", "c:\\music\\A.MP3", "0", "a.mp3", "200", "c:\\music\\a.mp3"},
    {"\\Music\\a.mp3", "C:\\Music\\a.mp3", "1", "a.mp3", "200", "C:\\Music\\a.mp3"},
    {"..\\Music\\a.mp3", "C:\\Music\\a.mp3", "2", "", "0", "C:\\Music\\"},
    {".\\Sub\\a.mp3", "C:\\Lists\\Sub\\a.mp3", "2", "", "0", "C:\\Lists\\Sub\\"},
    {"Sub\\a.mp3", "C:\\Lists\\Sub\\a.mp3", "3", "", "0", "C:\\Lists\\Sub\\"},
    {"here.mp3", "C:\\Lists\\here.mp3", "4", "", "0", "C:\\Lists\\"},
    {"  here.mp3  ", "C:\\Lists\\here.mp3", "4", "", "0", "C:\\Lists\\"},
    {"Q:\\a.mp3", "Q:\\a.mp3", "5", "", "0", "Q:\\"},
    {"R:\\a.mp3", "R:\\a.mp3", "9", "", "0", nullptr},
    {"D:\\a.mp3", "D:\\a.mp3", "9", "", "0", nullptr},
    {"N:\\a.mp3", "N:\\a.mp3", "9", "", "0", nullptr},
    {"\\\\server\\share\\a.mp3", "\\\\server\\share\\a.mp3", "9", "", "0", nullptr},
    {"http://host/a.mp3", "http://host/a.mp3", "9", "", "0", nullptr},
    {"FTP://host/a.mp3", "FTP://host/a.mp3", "9", "", "0", nullptr},
    {"mms://host/a", "mms://host/a", "9", "", "0", nullptr},
    {"X:\\a.mp3", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"A:\\a.mp3", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"gone.mp3", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"C:\\Music", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"C:\\Music\\a.mp3\\", nullptr, nullptr, nullptr, nullptr, nullptr},
};

TEST_F(ItemResolverTest, EveryKindOfReferenceIsResolvedInEveryTypeOfPlaylist) {
  for (const PlaylistOfKind& kind : kPlaylists) {
    for (const ReferenceRow& row : kReferences) {
      const std::string where = "type " + std::to_string(kind.type) + ", " + row.reference;
      log.clear();
      platform->Log().Clear();
      ASSERT_TRUE(ReadReferences(kind, {row.reference})) << where;
      ASSERT_EQ(Kept(), row.sourceUrl == nullptr ? 0 : 1) << where;
      if (row.sourceUrl == nullptr) continue;
      EXPECT_EQ(Field(1, u"Entry_SourceURL"), row.sourceUrl) << where;
      EXPECT_EQ(Field(1, u"Entry_URLType"), row.urlType) << where;
      EXPECT_EQ(Field(1, u"Entry_FileName"), row.fileName) << where;
      EXPECT_EQ(Field(1, u"Entry_FileSize"), row.fileSize) << where;
      EXPECT_EQ(log.size(), 0u) << where;
      const Lines trace = Utf8(platform->Trace());
      const bool registers = row.registered != nullptr;
      EXPECT_EQ(platform->Calls(u"Migration.Add"), registers ? 1u : 0u) << where;
      if (!registers) continue;
      const std::string call = std::string("Migration.Add ") + row.registered;
      EXPECT_EQ(std::count(trace.begin(), trace.end(), call), 1) << where;
    }
  }
}

TEST_F(ItemResolverTest, DroppedReferencesAreLoggedAsTheyWereResolved) {
  struct {
    const char* reference;
    const char* logged;
  } constexpr rows[] = {
      {"X:\\a.mp3", "X:\\a.mp3"},          {"C:\\gone.mp3", "C:\\gone.mp3"},
      {"gone.mp3", "C:\\Lists\\gone.mp3"}, {"..\\gone.mp3", "C:\\gone.mp3"},
      {"\\gone.mp3", "\\gone.mp3"},
  };
  for (const PlaylistOfKind& kind : kPlaylists) {
    for (const auto& row : rows) {
      log.clear();
      ASSERT_TRUE(ReadReferences(kind, {row.reference}));
      Lines expected = {std::string("NVERR_FILE_NOT_FOUND, PLAYLIST::") + kind.member +
                        ", File Not Found: " + row.logged};
      if (kind.type <= 2) {
        expected.emplace_back(
            "NVERR_OPFAIL, PLAYLIST::ReadASX, Failed to Add Entry Item to Entries Collection");
      }
      EXPECT_EQ(LogLines(), expected) << "type " << kind.type << ", " << row.reference;
    }
  }
}

TEST_F(ItemResolverTest, ARootRelativeReferenceIsLookedForOnThePlaylistsDrive) {
  platform->AddDrive(u'E', DriveType::Fixed);
  platform->AddFile(u"E:\\Music\\e.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadText(u"E:\\Lists\\Mix.m3u", 3, "\\Music\\e.mp3\r\n\\Music\\a.mp3\r\n"));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"E:\\Music\\e.mp3"}));
}

TEST_F(ItemResolverTest, FoldersThatBeginWithDigitsAndForeignLettersAreRootRelative) {
  platform->AddFile(u"C:\\01 Mix\\a.mp3", UntaggedMedia());
  platform->AddFile(u"C:\\Ärzte\\a.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 3, "\\01 Mix\\a.mp3\r\n\\\xC4rzte\\a.mp3\r\n"));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\01 Mix\\a.mp3", "C:\\Ärzte\\a.mp3"}));
  EXPECT_EQ(Fields(u"Entry_URLType"), Lines({"1", "1"}));
}

TEST_F(ItemResolverTest, AForwardSlashBehindTheDriveMakesAReferenceRelative) {
  ASSERT_TRUE(ReadReferences(kPlaylists[2], {"C:/Music/a.mp3"}));
  EXPECT_EQ(Kept(), 0);
}

TEST_F(ItemResolverTest, MediaIsToldByTheWholePath) {
  platform->AddFile(u"C:\\x.as\\readme.txt", "text");
  platform->AddFile(u"C:\\Music\\readme.txt", "text");
  ASSERT_TRUE(ReadReferences(kPlaylists[2], {"C:\\x.as\\readme.txt", "C:\\Music\\readme.txt"}));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\x.as\\readme.txt"}));
  EXPECT_EQ(LogLines(), Lines({"NVERR_INVALID_ARG, PLAYLIST::ReadM3U, Invalid Argument or Bad "
                               "Data: C:\\Music\\readme.txt"}));
}

TEST_F(ItemResolverTest, TheByteTotalCountsRepeatsAndFilesThatAreNoMedia) {
  platform->AddFile(u"C:\\Music\\readme.txt", "1234567");
  ASSERT_TRUE(ReadReferences(kPlaylists[5], {"C:\\Music\\a.mp3", "C:\\Music\\a.mp3",
                                             "C:\\Music\\readme.txt", "gone.mp3", "R:\\a.mp3"}));
  EXPECT_EQ(component.MediaBytes(), 407.0);
}

TEST_F(ItemResolverTest, ARefusedRegistrationDropsTheEntryWithoutAWord) {
  platform->Migration().RefuseGroups();
  for (const PlaylistOfKind& kind : kPlaylists) {
    ASSERT_TRUE(ReadReferences(kind, {"C:\\Music\\a.mp3", "http://host/a.mp3"}));
    EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://host/a.mp3"})) << kind.type;
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(ItemResolverTest, TheSameFileTwiceIsTwoEntriesAndOneRecord) {
  for (const PlaylistOfKind& kind : kPlaylists) {
    ASSERT_TRUE(ReadReferences(kind, {"C:\\Music\\a.mp3", "c:\\music\\A.mp3"}));
    EXPECT_EQ(Kept(), 2) << kind.type;
  }
  EXPECT_EQ(platform->Records().size(), 1u);
}

struct FolderRow {
  const char* artist;
  const char* album;
  const char* subFolder;
};

TEST_F(ItemResolverTest, TheSubFolderFollowsArtistAndAlbum) {
  platform->AddFile(u"C:\\My Documents\\Norvo Media\\SubNames.txt",
                    "[PlayListStrings]\r\nSzID001=Both\r\nSzID002=Artists\r\nSzID003=Albums\r\n"
                    "SzID004=Neither\r\n");
  constexpr FolderRow kFolderRows[] = {
      {"An artist", "An album", "Both\\An artist\\An album\\"},
      {"An artist", "", "Artists\\An artist\\"},
      {"", "An album", "Albums\\An album\\"},
      {"", "", "Neither\\"},
  };
  for (const FolderRow& row : kFolderRows) {
    for (const PlaylistOfKind& kind : kPlaylists) {
      const std::string path =
          "C:\\Music\\" + std::to_string(kind.type) + row.subFolder[0] + ".mp3";
      platform->AddFile(FromUtf8Lossy(path), MediaWithOldTag("", row.artist, row.album));
      ASSERT_TRUE(ReadReferences(kind, {path}));
      ASSERT_FALSE(platform->Records().empty());
      EXPECT_TEXT(platform->Records().back().destination,
                  u"GET_SHELL_FOLDER,5,Music PlayLists,C:\\My Documents\\Norvo Media\\" +
                      FromUtf8Lossy(row.subFolder))
          << "type " << kind.type;
    }
  }
}

TEST_F(ItemResolverTest, EntriesKeepThePlaylistsNameExceptThoseOfTheAsxReader) {
  for (const PlaylistOfKind& kind : kPlaylists) {
    ASSERT_TRUE(ReadReferences(kind, {"here.mp3"}));
    const auto entry = std::dynamic_pointer_cast<FormatEntry>(EntryAt(1));
    ASSERT_NE(entry, nullptr);
    EXPECT_TEXT(entry->StoredPlayListName(), kind.type <= 2 ? u"" : u"Mix") << kind.type;
    EXPECT_EQ(Field(1, u"Entry_PlayListName"), "") << kind.type;
  }
}

TEST_F(ItemResolverTest, ALocalEntryCostsOneLookUpAndOneOpening) {
  for (const PlaylistOfKind& kind : kPlaylists) {
    for (const char* const reference :
         {"C:\\Music\\a.mp3", "\\Music\\a.mp3", "..\\Music\\a.mp3", "Sub\\a.mp3", "here.mp3"}) {
      platform->AddFile(kind.path, TextFor(kind.type, {reference}));
      playlist = NewPlayList(kind.type);
      platform->Log().Clear();
      ASSERT_TRUE(Read(kind.path));
      ASSERT_EQ(Kept(), 1);
      std::size_t lookUps = 0;
      std::size_t openings = 0;
      for (const std::string& call : Utf8(platform->Trace())) {
        if (!call.ends_with(".mp3")) continue;
        lookUps += call.starts_with("FactsOf ") ? 1u : 0u;
        openings += call.starts_with("OpenForReading ") ? 1u : 0u;
      }
      EXPECT_EQ(lookUps, 1u) << "type " << kind.type << ", " << reference;
      EXPECT_EQ(openings, 1u) << "type " << kind.type << ", " << reference;
    }
  }
}

TEST_F(ItemResolverTest, AStreamIsNotLookedForOnTheDisk) {
  for (const PlaylistOfKind& kind : kPlaylists) {
    platform->AddFile(kind.path, TextFor(kind.type, {"http://host/a.mp3"}));
    playlist = NewPlayList(kind.type);
    platform->Log().Clear();
    ASSERT_TRUE(Read(kind.path));
    EXPECT_EQ(platform->Calls(u"FactsOf"), 1u) << kind.type;  // the playlist itself
  }
}

TEST_F(ItemResolverTest, TheCostPerEntryDoesNotGrowWithTheirNumber) {
  for (const PlaylistOfKind& kind : kPlaylists) {
    const auto callsFor = [&](std::size_t count) {
      platform->AddFile(kind.path, TextFor(kind.type, Lines(count, "C:\\Music\\a.mp3")));
      playlist = NewPlayList(kind.type);
      platform->Log().Clear();
      EXPECT_TRUE(Read(kind.path));
      EXPECT_EQ(Kept(), static_cast<std::int32_t>(count));
      // How often the playlist's own text is read depends on its length.
      return platform->Log().Total() - platform->Calls(u"ReadAt");
    };
    callsFor(1);
    const std::size_t few = callsFor(100);
    const std::size_t more = callsFor(200);
    const std::size_t many = callsFor(300);
    EXPECT_EQ(more - few, many - more) << "type " << kind.type;
    EXPECT_LE(more - few, 100u * 12u) << "type " << kind.type;
  }
}

TEST_F(ItemResolverTest, ALongTagIsTakenWholeAndSoOftenOnlyThatItCannotFillTheMemory) {
  const std::string longest(32766, 'x');
  platform->AddFile(u"C:\\Lists\\long.mp3",
                    Id3(TextFrame("TIT2", longest) + TextFrame("TPE1", longest)));
  for (const PlaylistOfKind& kind : kPlaylists) {
    SCOPED_TRACE(kind.type);
    ASSERT_TRUE(ReadReferences(kind, {"long.mp3", "here.mp3"}));
    EXPECT_EQ(Field(1, u"Entry_SongName"), longest);
    // Song, artist, and the title that both make: 131,087 units and those of the address.
    constexpr std::int32_t kFit = 255;
    EXPECT_TRUE(ReadReferences(kind, Lines(kFit, "long.mp3")));
    EXPECT_EQ(Kept(), kFit);
    log.clear();
    EXPECT_FALSE(ReadReferences(kind, Lines(kFit + 45, "long.mp3")));
    EXPECT_EQ(Kept(), kFit);
    EXPECT_EQ(log.size(), 1u);
    EXPECT_TRUE(ReadReferences(kind, Lines(1, "long.mp3")));
  }
}

TEST_F(ItemResolverTest, OneItemMoreThanAQuarterOfAMillionEndsTheReading) {
  std::string text(250'000, '\n');
  EXPECT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 6, text));
  EXPECT_FALSE(ReadText(u"C:\\Lists\\Mix.m3u", 6, text + "\n"));
}

TEST_F(ItemResolverTest, AReferenceThatIsLongerThanAnyLineEndsTheReading) {
  const std::string longest(kLongestLine, 'x');
  EXPECT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 6, longest));
  EXPECT_FALSE(ReadText(u"C:\\Lists\\Mix.m3u", 6, longest + "x"));
}

/// Notes the items of the playlists that are being read.
class ItemFollower final : public Observer {
 public:
  void OnItem(StringView reference, ItemOutcome outcome) override {
    static const char* const kNames[] = {"kept", "missing", "not media", "empty", "not registered"};
    items.push_back(Utf8(reference) + " " + kNames[static_cast<int>(outcome)]);
  }
  Lines items;
};

TEST_F(ItemResolverTest, TheWatcherHearsOfEveryItemWhatBecameOfIt) {
  platform->AddFile(u"C:\\Lists\\read.txt", "x");
  for (const PlaylistOfKind& kind : kPlaylists) {
    ItemFollower follower;
    component.SetObserver(&follower);
    ASSERT_TRUE(ReadReferences(kind, {"here.mp3", "R:\\a.mp3", "http://host/a", "gone.mp3",
                                      "X:\\a.mp3", "C:\\Lists\\read.txt"}));
    component.SetObserver(&watcher);
    EXPECT_EQ(follower.items, Lines({"C:\\Lists\\here.mp3 kept", "R:\\a.mp3 kept",
                                     "http://host/a kept", "C:\\Lists\\gone.mp3 missing",
                                     "X:\\a.mp3 missing", "C:\\Lists\\read.txt not media"}))
        << kind.type;
    EXPECT_EQ(Kept(), 3) << kind.type;
  }
}

/// Listens, and has no use for the entries.
class Listener final : public Observer {
 public:
  bool WantsEntries() override { return false; }
};

TEST_F(ItemResolverTest, ForAWatcherThatWantsNoEntriesEmptyOnesCountAndAllElseIsDone) {
  for (const PlaylistOfKind& kind : kPlaylists) {
    platform->Log().Clear();
    Listener listener;
    component.SetObserver(&listener);
    EXPECT_TRUE(ReadReferences(kind, {"here.mp3", "http://host/a", "gone.mp3", "Q:\\a.mp3"}));
    component.SetObserver(&watcher);
    EXPECT_EQ(Kept(), 3) << kind.type;
    EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"", "", ""})) << kind.type;
    EXPECT_EQ(platform->Calls(u"Migration.Add"), 2u) << kind.type;
    ASSERT_TRUE(ReadReferences(kind, {"here.mp3"}));
    EXPECT_EQ(Field(1, u"Entry_SourceURL"), "C:\\Lists\\here.mp3") << kind.type;
  }
}

TEST_F(ItemResolverTest, TheWatcherHearsOfAnEmptyReferenceAndOfARefusedRegistration) {
  ItemFollower follower;
  component.SetObserver(&follower);
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.asx", 1, TextOf({"<Entry>", "</Entry>"})));
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 6, "\r\n"));
  platform->Migration().RefuseGroups();
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 3, "here.mp3\r\nhttp://host/a\r\n"));
  component.SetObserver(&watcher);
  EXPECT_EQ(follower.items, Lines({" empty", " empty", "C:\\Lists\\here.mp3 not registered",
                                   "http://host/a kept"}));
}

}  // namespace
}  // namespace norvo

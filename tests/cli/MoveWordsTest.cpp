#include "cli/MoveWords.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace norvo::cli {
namespace {

std::string TextOfFailure(PlaceFailure failure, StringView systemReason) {
  MovedSong song;
  song.fault = MovedSong::Fault::NotBrought;
  song.failure = failure;
  song.systemReason = String(systemReason);
  return ReasonText(song);
}

TEST(MoveWords, ASongThatWasNotBroughtSaysWhatFailedAndWhatTheSystemSaid) {
  EXPECT_EQ(TextOfFailure(PlaceFailure::SourceMissing, {}), "the old file is not there any more");
  EXPECT_EQ(TextOfFailure(PlaceFailure::SourceNoFile, {}),
            "the old one is no file but a folder or a device");
  EXPECT_EQ(TextOfFailure(PlaceFailure::SourceUnreadable, u"permission denied"),
            "the old file cannot be read: permission denied");
  EXPECT_EQ(TextOfFailure(PlaceFailure::SourceChanged, {}),
            "the old file changed while it was read");
  EXPECT_EQ(TextOfFailure(PlaceFailure::TargetUnwritable, u"the disk is full"),
            "the new file cannot be written: the disk is full");
  EXPECT_EQ(TextOfFailure(PlaceFailure::FolderThere, {}), "a folder of that name is there already");
  EXPECT_EQ(TextOfFailure(PlaceFailure::OtherFileThere, {}),
            "another file of that name is there already");
  EXPECT_EQ(TextOfFailure(PlaceFailure::NotComparable, u"the disk failed"),
            "a file of that name is there already and cannot be compared: the disk failed");
  EXPECT_EQ(TextOfFailure(PlaceFailure::NotCopied, u"the disk is full"),
            "the file cannot be copied: the disk is full");
}

TEST(MoveWords, ASongThatWasBroughtNeedsNone) {
  EXPECT_EQ(ReasonText(MovedSong()), "");
}

TEST(MoveWords, ASongWithoutAPlaceSaysWhyThereIsNone) {
  const auto text = [](MovedSong::Fault fault) {
    MovedSong song;
    song.fault = fault;
    song.faultPath = u"C:\\Media\\One.mp3";
    return ReasonText(song);
  };
  const std::string nowhere = "the new machine has no place for it: ";
  EXPECT_EQ(text(MovedSong::Fault::PathTooLong),
            nowhere + "the path C:\\Media\\One.mp3 would be too long");
  EXPECT_EQ(text(MovedSong::Fault::FolderBlocked),
            nowhere +
                "a file stands where one of the folders of C:\\Media\\One.mp3 should be, or what "
                "stands there may not be seen");
  EXPECT_EQ(text(MovedSong::Fault::NumbersTaken),
            nowhere + "all numbers of C:\\Media\\One.mp3 are taken");
  EXPECT_EQ(
      text(MovedSong::Fault::GroupRootUnusable),
      nowhere + "see that the folder for music, C:\\Media\\One.mp3, has a name of plain letters");
}

TEST(MoveWords, APlaylistThatWasLeftOutSaysWhy) {
  const auto text = [](MovedPlaylist::Fault fault) {
    MovedPlaylist playlist;
    playlist.fault = fault;
    playlist.systemReason = u"Disk full";
    return ReasonText(playlist);
  };
  using Fault = MovedPlaylist::Fault;
  EXPECT_EQ(text(Fault::None), "");
  EXPECT_EQ(text(Fault::KindNotRead), "only its own player can read a list of this kind");
  EXPECT_EQ(text(Fault::Unreadable), "it cannot be read: Disk full");
  EXPECT_EQ(text(Fault::GenericNotWritten),
            "what was read of it cannot be kept: see that the folder of the old machine's data "
            "can be written and the disk is not full");
  EXPECT_EQ(text(Fault::GenericDoesNotReadBack),
            "what was written down of it reads back as something else");
  EXPECT_EQ(text(Fault::NotCarried), "it cannot be written on the new machine: Disk full");
  EXPECT_EQ(text(Fault::NotRestored),
            "its new lists cannot be written: see that the new machine's disk can be written and "
            "is not full, and run again");
  EXPECT_EQ(text(Fault::NotNoted),
            "the new machine cannot note that it was moved: Disk full. Run again when it can");
}

TEST(MoveWords, OfAPlaylistThatIsDeniedThePathIsToldOnceAndWhatToDo) {
  MovedPlaylist playlist;
  playlist.fault = MovedPlaylist::Fault::Unreadable;
  playlist.source = u"C:\\Music\\Mix.m3u";
  playlist.systemReason = u"Permission denied: C:\\Music\\Mix.m3u";
  EXPECT_EQ(ReasonText(playlist),
            "it cannot be read: Permission denied. Close the program that uses it, see that it may "
            "be read and written, and run again");
}

TEST(MoveWords, APlaylistThatIsNotReadNamesItsKindWhereThatIsKnown) {
  MovedPlaylist playlist;
  playlist.fault = MovedPlaylist::Fault::KindNotRead;
  playlist.kind = "Kazaa playlist";
  EXPECT_EQ(ReasonText(playlist), "only its own player can read a Kazaa playlist");
}

TEST(MoveWords, APlaylistThatWasSkippedSaysWhereItStands) {
  const auto text = [](MovedPlaylist::SkipRule rule) {
    MovedPlaylist playlist;
    playlist.state = MovedPlaylist::State::Skipped;
    playlist.rule = rule;
    return ReasonText(playlist);
  };
  using Rule = MovedPlaylist::SkipRule;
  EXPECT_EQ(text(Rule::RecycleBin), "it is in the recycle bin");
  EXPECT_EQ(text(Rule::TemporaryInternetFiles), "it is among the temporary files of a browser");
  EXPECT_EQ(text(Rule::SystemFolder), "it is in a folder that Windows keeps for itself");
  EXPECT_EQ(text(Rule::OtherForm), "it is another form of a list that is moved");
}

TEST(MoveWords, AMendingSaysHowOftenItWasNeeded) {
  using Kind = Mending::Kind;
  EXPECT_EQ(TextOf(Mending{Kind::EntriesAdded, 3}),
            "3 of its lines are written in a way that is easily overlooked; none was lost");
  EXPECT_EQ(TextOf(Mending{Kind::EntriesAdded, 1}),
            "1 of its lines is written in a way that is easily overlooked; none was lost");
  EXPECT_EQ(TextOf(Mending{Kind::DetailsFilled, 2}),
            "the names or lengths of 2 of its songs come from the song files");
}

/// Every value of an enumeration, up to the last.
template <class Value>
std::vector<Value> AllUpTo(Value last) {
  std::vector<Value> all;
  for (int i = 0; i <= static_cast<int>(last); ++i) all.push_back(static_cast<Value>(i));
  return all;
}

TEST(MoveWords, NothingIsToldInTheWordsOfTheProgram) {
  std::vector<std::string> texts;
  for (const auto kind : AllUpTo(Mending::Kind::DetailsFilled)) {
    texts.push_back(TextOf(Mending{kind, 2}));
  }
  for (const auto reason : AllUpTo(Adjustment::Reason::OldAddressTaken)) {
    texts.emplace_back(TextOf(reason));
  }
  for (const auto fault : AllUpTo(MovedPlaylist::Fault::NotNoted)) {
    MovedPlaylist playlist;
    playlist.fault = fault;
    if (fault != MovedPlaylist::Fault::None) texts.push_back(ReasonText(playlist));
  }
  for (const std::string& text : texts) {
    EXPECT_NE(text, "");
    for (const char* const term : {"neutral", "generic", "native", "queue", "entr", "heal", "key",
                                   "root", "8-bit", "code page", "reference"}) {
      EXPECT_EQ(text.find(term), std::string::npos) << term << " in: " << text;
    }
  }
}

TEST(MoveWords, AnItemThatWasLeftOutSaysWhy) {
  const auto text = [](MovedItem::Fate fate) {
    MovedItem item;
    item.fate = fate;
    return ReasonText(item);
  };
  EXPECT_EQ(text(MovedItem::Fate::Song), "");
  EXPECT_EQ(text(MovedItem::Fate::Address), "");
  EXPECT_EQ(text(MovedItem::Fate::NoSuchFile), "no such file");
  EXPECT_EQ(text(MovedItem::Fate::NotMedia), "not a media file");
  EXPECT_EQ(text(MovedItem::Fate::Ambiguous),
            "not where the list says, and several files have that name");
}

}  // namespace
}  // namespace norvo::cli

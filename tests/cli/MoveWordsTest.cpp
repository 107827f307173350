#include "cli/MoveWords.h"

#include <gtest/gtest.h>

#include <utility>

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
  EXPECT_EQ(TextOfFailure(PlaceFailure::SourceMissing, {}), "the source is not there");
  EXPECT_EQ(TextOfFailure(PlaceFailure::SourceNoFile, {}), "the source is no file");
  EXPECT_EQ(TextOfFailure(PlaceFailure::SourceUnreadable, u"permission denied"),
            "the source cannot be read: permission denied");
  EXPECT_EQ(TextOfFailure(PlaceFailure::SourceChanged, {}), "the source changed while it was read");
  EXPECT_EQ(TextOfFailure(PlaceFailure::TargetUnwritable, u"the disk is full"),
            "the target cannot be written: the disk is full");
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
            nowhere + "a file stands where one of the folders of C:\\Media\\One.mp3 should be");
  EXPECT_EQ(text(MovedSong::Fault::NumbersTaken),
            nowhere + "all numbers of C:\\Media\\One.mp3 are taken");
  EXPECT_EQ(text(MovedSong::Fault::GroupRootUnusable),
            nowhere + "see that its group root C:\\Media\\One.mp3 is a path of plain characters");
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
  EXPECT_EQ(text(Fault::Unreadable), "cannot be read: Disk full");
  EXPECT_EQ(text(Fault::GenericNotWritten),
            "its neutral file cannot be written: see that the old machine's data area is writable "
            "and its disk not full");
  EXPECT_EQ(text(Fault::GenericDoesNotReadBack), "its neutral file does not read back");
  EXPECT_EQ(text(Fault::NotCarried),
            "its neutral file cannot be written on the new machine: Disk full");
  EXPECT_EQ(text(Fault::NotRestored),
            "its native playlists cannot be written: see that the new machine's disk is writable "
            "and not full, and run again");
  EXPECT_EQ(text(Fault::NotNoted),
            "the new machine cannot note what is restored: Disk full. Run again when it can");
}

TEST(MoveWords, AMendingSaysWhatWasMended) {
  using Kind = Mending::Kind;
  const std::pair<Kind, const char*> rows[] = {
      {Kind::NotListed, "read anew: its first lines tell no type, so it was not listed"},
      {Kind::QueueEnded, "read anew: the queue ended before it had a neutral file"},
      {Kind::Unnamed, "read anew: it had no name for its neutral file"},
      {Kind::NotWritten, "read anew: its neutral file could not be written under its name"},
      {Kind::NothingUnderstood, "read anew: none of its lines was understood"},
      {Kind::UnknownType, "read anew: its first lines tell no type"},
      {Kind::NotReadToEnd, "read anew: it was not read to its end"},
      {Kind::NameTaken, "read anew: another playlist's neutral file took its name"},
      {Kind::Incomplete, "read anew: its neutral file does not tell all that it lists"},
      {Kind::EntriesAdded, "3 of its entries added: the readers do not take them"},
      {Kind::Split, "split, since a playlist holds at most 32767 entries"}};
  for (const auto& [kind, text] : rows) EXPECT_EQ(TextOf(Mending{kind, 3}), text);
}

TEST(MoveWords, AnAdjustmentSaysWhyItWasMade) {
  using Reason = Adjustment::Reason;
  const std::pair<Reason, const char*> rows[] = {
      {Reason::NameUnusable,
       "its native playlists would lose the name, or have none that Windows takes"},
      {Reason::ManyOfOneName, "many playlists have this name"},
      {Reason::NativeBlocked,
       "a folder, or a link that leads nowhere, has the name of a native playlist"},
      {Reason::Markup, "ASX files would take it for markup"},
      {Reason::RelativeReference, "a relative reference gives no file name"},
      {Reason::NotInCodePage, "playlists cannot tell this path: it does not fit the 8-bit page"},
      {Reason::PathTooLong, "the path would be too long"},
      {Reason::IllegalName, "no path on Windows may be called so"},
      {Reason::LeavesGroupRoot, "the path would leave the group root"},
      {Reason::OtherSong, "another song has this place"},
      {Reason::FolderThere, "a folder has this name"},
      {Reason::OtherFile, "another file has this place"},
      {Reason::PlaceElsewhere, "the song has its one place elsewhere"},
      {Reason::OldAddressTaken, "on the new machine another file stands at the old address"}};
  for (const auto& [reason, text] : rows) EXPECT_STREQ(TextOf(reason), text);
}

TEST(MoveWords, AnItemThatWasLeftOutSaysWhy) {
  MovedItem item;
  item.reference = u"Gone.mp3";
  item.fate = MovedItem::Fate::NoSuchFile;
  EXPECT_EQ(TextOf(item), "\"Gone.mp3\": no such file");
  item.fate = MovedItem::Fate::NotMedia;
  EXPECT_EQ(TextOf(item), "\"Gone.mp3\": not a media file");
}

TEST(MoveWords, StatesHaveTheNamesOfTheDocument) {
  EXPECT_STREQ(NameOf(MovedPlaylist::State::Collected), "collected");
  EXPECT_STREQ(NameOf(MovedPlaylist::State::Restored), "restored");
  EXPECT_STREQ(NameOf(MovedPlaylist::State::AlreadyRestored), "alreadyRestored");
  EXPECT_STREQ(NameOf(MovedPlaylist::State::NoSongs), "noSongs");
  EXPECT_STREQ(NameOf(MovedPlaylist::State::LeftOut), "leftOut");
  EXPECT_STREQ(NameOf(MovedSong::State::Planned), "planned");
  EXPECT_STREQ(NameOf(MovedSong::State::Copied), "copied");
  EXPECT_STREQ(NameOf(MovedSong::State::Linked), "linked");
  EXPECT_STREQ(NameOf(MovedSong::State::AlreadyThere), "alreadyThere");
  EXPECT_STREQ(NameOf(MovedSong::State::LeftOut), "leftOut");
}

}  // namespace
}  // namespace norvo::cli

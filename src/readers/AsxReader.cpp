#include "readers/AsxReader.h"

#include "automation/Attempt.h"
#include "readers/AsxLineParser.h"
#include "readers/AsxParams.h"
#include "readers/ItemResolver.h"
#include "readers/TextLines.h"
#include "services/Logging.h"
#include "services/NVServices.h"
#include "services/Utility.h"

namespace norvo {
namespace {

constexpr ResolverMessages kAsxMessages = {
    u"NVERR_FILE_NOT_FOUND, PLAYLIST::AddEntry, File Not Found: ",
    u"NVERR_INVALID_ARG, PLAYLIST::AddEntry, Invalid Argument or Bad Data: "};

/// Type of the collection and its entries: the one that is read as ASX and has the extension of the
/// file's name, whatever the playlist's type; unknown for any other name.
std::int32_t TypeByName(StringView fileName) {
  const PlaylistType* const type =
      FindTypeOfFile(fileName, [](const PlaylistType& each) { return each.readAs == Syntax::Asx; });
  return type == nullptr ? playlist_type::kUnknown : type->code;
}

/// Walks the lines of one file.
class AsxWalk {
 public:
  AsxWalk(Component& component, PlaylistRecord& playlist, std::int32_t entryType, String folder)
      : component_(component),
        playlist_(playlist),
        entryType_(entryType),
        resolver_(component, playlist, std::move(folder), kAsxMessages) {}

  void Visit(StringView line) {
    if (!insidePlaylist_) return;
    if (insideBanner_) {
      const bool ended = entry_ ? IsBannerEnd(line) : HoldsBannerEnd(line);
      if (ended) insideBanner_ = false;
    } else if (entry_) {
      VisitInsideEntry(line);
    } else {
      VisitOutsideEntry(line);
    }
  }

 private:
  void VisitInsideEntry(StringView line) {
    switch (KindInsideEntry(line)) {
      case AsxLineKind::Param:
        return ApplyEntryParam(line, *entry_);
      case AsxLineKind::Abstract:
        return entry_->SetAbstract(ElementValue(line));
      case AsxLineKind::Ref:
        return entry_->SetHref(AttributeValue(line, u"href"));
      case AsxLineKind::Duration:
        return entry_->SetDurationText(AttributeValue(line, u"value"));
      case AsxLineKind::Author:
        return entry_->SetAuthor(ElementText(line));
      case AsxLineKind::Title:
        return SetEntryTitle(ElementText(line));
      case AsxLineKind::Copyright:
        return entry_->SetCopyright(ElementText(line));
      case AsxLineKind::EntryEnd:
        return EndEntry();
      default:
        return;
    }
  }

  void VisitOutsideEntry(StringView line) {
    switch (KindOutsideEntry(line)) {
      case AsxLineKind::EntryStart:
        // An ASX entry gets no playlist name: intended.
        entry_ = std::make_shared<AsxEntry>(component_);
        return entry_->SetEntryType(entryType_);
      case AsxLineKind::Param:
        return ApplyPlaylistParam(line, playlist_);
      case AsxLineKind::Banner:
        // What a banner holds is never read.
        insideBanner_ = !HoldsBannerEnd(line);
        return;
      case AsxLineKind::AsxVersion:
        playlist_.asxVersion = AttributeValue(line, u"Version");
        return;
      case AsxLineKind::Title:
        playlist_.asxTitle = ElementText(line);
        return;
      case AsxLineKind::Author:
        playlist_.asxAuthor = ElementText(line);
        return;
      case AsxLineKind::AsxEnd:
        insidePlaylist_ = false;
        return;
      default:
        return;
    }
  }

  void SetEntryTitle(StringView title) {
    entry_->SetTitle(title);
    if (entry_->AsxSongName().empty()) entry_->SetAsxSongName(title);
    if (entry_->SongName().empty()) entry_->SetSongName(title);
  }

  void EndEntry() {
    const std::shared_ptr<AsxEntry> entry = std::move(entry_);
    entry_.reset();
    entry->SetHasExtendedInfo(true);
    if (!AddEntry(entry)) {
      WriteLog(component_,
               u"NVERR_OPFAIL, PLAYLIST::ReadASX, Failed to Add Entry Item to Entries Collection");
    }
  }

  /// False only for a reference that is not usable.
  bool AddEntry(const std::shared_ptr<AsxEntry>& entry) {
    const String reference(NVServices::StripNull(entry->Href()));
    const std::optional<ItemResolver::Item> item = resolver_.Judge(*entry, reference);
    if (!item) return false;
    entry->SetHref(item->reference);
    resolver_.Complete(entry, *item, {}, kMusicLabel);
    return true;
  }

  Component& component_;
  PlaylistRecord& playlist_;
  std::int32_t entryType_;
  ItemResolver resolver_;
  std::shared_ptr<AsxEntry> entry_;  // set inside an entry
  bool insidePlaylist_ = true;       // until the end of the Asx element
  bool insideBanner_ = false;
};

bool WalkLines(Component& component, PlaylistRecord& playlist, TextStream& stream,
               StringView fileName, String folder) {
  // An empty file has no lines to walk and fails.
  const bool empty = stream.AtEnd();
  const String text = empty ? String() : stream.ReadAll();
  stream.Close();
  const std::int32_t type = TypeByName(fileName);
  if (type != playlist_type::kUnknown) playlist.entries->SetCollectionType(type);
  if (empty) return false;
  const std::vector<StringView> lines = SplitLines(text);
  AsxWalk walk(component, playlist, type, std::move(folder));
  for (std::size_t i = 0; i < ReachableLines(lines); ++i) walk.Visit(lines[i]);
  return !ExceedsLineLimit(lines);
}

}  // namespace

bool ReadASX(Component& component, PlaylistRecord& playlist, StringView fileName,
             StringView folderPath) {
  const String folder = Utility::AddBackslash(folderPath);
  const std::unique_ptr<TextStream> stream =
      DataCop::OpenTextStream(component, folder + String(fileName));
  if (!stream) {
    WriteLog(component,
             u"NVERR_OPFAIL, PLAYLIST::ReadASX, Failed to recieve the TextStream Reference!");
    return false;
  }
  // After an error the entries added so far stay.
  return AnswerOr(false, [&] { return WalkLines(component, playlist, *stream, fileName, folder); });
}

}  // namespace norvo

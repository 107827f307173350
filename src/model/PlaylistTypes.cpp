#include "model/PlaylistTypes.h"

#include <algorithm>
#include <array>

namespace norvo {
namespace {

constexpr PlaylistType kTypes[] = {
    {
        .code = playlist_type::kWmpAsx,
        .name = u"WMP_ASX",
        .extension = u".asx",
        .playerFolder = u"Windows Media Player",
        .queuePlace = 1,
        .readAs = Syntax::Asx,
        // "Type" in this text and the next, "type" in the others: intended.
        .failureText =
            u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_ASX returned False",
        .writtenAs = Syntax::Asx,
        .entries = EntryKind::Asx,
        .standIn = StandIn::Always,
        // Listed without a look at the text; the queue, which looks, finds another type: intended.
        .isToldByExtension = true,
        .keepsExtension = true,  // unlike all other types: intended
        // Not so for type 2, although its generic files hold them too: intended.
        .restoresProperties = true,
    },
    {
        .code = playlist_type::kWmpM3u,
        .name = u"WMP_M3U",
        .extension = u".m3u",
        .playerFolder = u"Windows Media Player",
        .queuePlace = 2,
        .readAs = Syntax::Asx,  // not as an M3U: intended
        .failureText =
            u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_M3U returned False",
        .writtenAs = std::nullopt,  // no M3U is written for this player: intended
        .entries = EntryKind::Asx,
        .entryExtension = u".asx",  // not the playlist's own: intended
        .mark = {.text = u"<Asx"},
    },
    {
        .code = playlist_type::kWinampM3u,
        .name = u"WINAMP_M3U",
        .extension = u".m3u",
        .playerFolder = u"WinAmp",
        .queuePlace = 3,
        .readAs = Syntax::M3u,
        .failureText =
            u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadM3U for type WINAMP_M3U returned False",
        .writtenAs = Syntax::M3u,
        .entries = EntryKind::M3u,
        .itemInfo = ItemInfo::ExtInfLine,
        .mark = {.text = u"#EXTM3U"},
        .standIn = StandIn::WithTitles,
    },
    {
        .code = playlist_type::kWinampPls,
        .name = u"WINAMP_PLS",
        .extension = u".pls",
        .playerFolder = u"WinAmp",
        .queuePlace = 4,
        .readAs = Syntax::Pls,
        .failureText =
            u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type WINAMP_PLS returned False",
        .writtenAs = std::nullopt,  // no PLS is written for this player: intended
        .entries = EntryKind::Pls,
        .itemInfo = ItemInfo::Title,
        .header = Header::SettingsKeys,
        .mark = {.version = u"2"},
        .standIn = StandIn::Always,
    },
    {
        .code = playlist_type::kSoniquePls,
        .name = u"SONIQUE_PLS",
        .extension = u".pls",
        .playerFolder = u"Sonique",
        .queuePlace = 6,  // behind type 6: intended
        .readAs = Syntax::Pls,
        .failureText =
            u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type SONIQUE_PLS returned False",
        .writtenAs = Syntax::Pls,
        .entries = EntryKind::Pls,
        .itemInfo = ItemInfo::Title,
        .header = Header::SettingsKeys,
        .mark = {.key = u"CachedInfo", .withoutVersion = true},
    },
    {
        .code = playlist_type::kMmjbM3u,
        .name = u"MMJB_M3U",
        .extension = u".m3u",
        .playerFolder = u"MusicMatch Jukebox",
        .queuePlace = 5,
        .readAs = Syntax::BareM3u,
        .failureText =
            u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadMMJB for type MMJB_M3U returned False",
        .writtenAs = Syntax::BareM3u,
        .entries = EntryKind::M3u,
        .mark = {.pattern = u"?:\\*"},
        .standIn = StandIn::WithoutTitles,
    },
};

using Order = std::array<const PlaylistType*, std::size(kTypes)>;

constexpr Order kQueueOrder = [] {
  Order order{};
  std::transform(std::begin(kTypes), std::end(kTypes), order.begin(),
                 [](const PlaylistType& type) { return &type; });
  std::sort(order.begin(), order.end(), [](const PlaylistType* left, const PlaylistType* right) {
    return left->queuePlace < right->queuePlace;
  });
  return order;
}();

}  // namespace

String PlaylistType::Title() const {
  return String(name.substr(name.rfind(u'_') + 1)) + u" of " + String(playerFolder);
}

std::span<const PlaylistType> PlaylistTypes() {
  return kTypes;
}

std::span<const PlaylistType* const> QueuedTypes() {
  return kQueueOrder;
}

std::vector<const PlaylistType*> NativeTypes() {
  std::vector<const PlaylistType*> types;
  std::copy_if(kQueueOrder.begin(), kQueueOrder.end(), std::back_inserter(types),
               [](const PlaylistType* type) { return type->writtenAs.has_value(); });
  return types;
}

std::span<const StringView> PlaylistExtensions() {
  static const std::vector<StringView> extensions = [] {
    std::vector<StringView> found;
    for (const PlaylistType& type : kTypes) {
      if (std::find(found.begin(), found.end(), type.extension) != found.end()) continue;
      found.push_back(type.extension);
    }
    return found;
  }();
  return extensions;
}

const PlaylistType* FindPlaylistType(std::int32_t code) {
  const auto* const found =
      std::find_if(std::begin(kTypes), std::end(kTypes),
                   [code](const PlaylistType& type) { return type.code == code; });
  return found == std::end(kTypes) ? nullptr : found;
}

bool HasExtension(StringView fileName, const PlaylistType& type) {
  return EndsWithIgnoreCase(fileName, type.extension);
}

bool IsPlayListFile(StringView fileName) {
  return FindTypeOfFile(fileName, [](const PlaylistType&) { return true; }) != nullptr;
}

const PlaylistType& StandInType(StringView fileName, bool hasTitles) {
  const StandIn byTitles = hasTitles ? StandIn::WithTitles : StandIn::WithoutTitles;
  const PlaylistType* const type = FindTypeOfFile(fileName, [byTitles](const PlaylistType& each) {
    return each.standIn == byTitles || each.standIn == StandIn::Always;
  });
  return type != nullptr ? *type : StandInType(kUsualExtension, hasTitles);
}

bool HasAsxEntries(std::int32_t code) {
  const PlaylistType* const type = FindPlaylistType(code);
  return type != nullptr && type->entries == EntryKind::Asx;
}

StringView EntryExtension(std::int32_t code) {
  const PlaylistType* const type = FindPlaylistType(code);
  if (type == nullptr) return {};
  return type->entryExtension.empty() ? type->extension : type->entryExtension;
}

}  // namespace norvo

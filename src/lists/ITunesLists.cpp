#include "lists/ITunesLists.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

#include "lists/ItemNumbers.h"
#include "lists/MarkupElements.h"

namespace norvo {
namespace {

// Of the texts of all items of all lists, so many times the file's: one that stands in several
// lists is in memory once, but is written again and again when they are moved.
constexpr std::size_t kMostCopies = 16;

// Nobody's library of 64 MiB has so many items in all its lists, so many tracks in these, or so
// many characters of their texts; each is in memory beside the text.
constexpr std::size_t kMostItems = 500'000;
constexpr std::size_t kMostTracks = 250'000;
constexpr std::size_t kMostUnits = 20'000'000;

// The marks of lists that iTunes keeps for itself, each with a value other than <false/>.
constexpr StringView kOwnMarks[] = {
    u"Master",    u"Folder",   u"Distinguished Kind", u"Music",        u"Movies",
    u"TV Shows",  u"Podcasts", u"Audiobooks",         u"Books",        u"iTunesU",
    u"Ringtones", u"Apps",     u"Purchased Music",    u"Party Shuffle"};

/// Calls `take` with each key of the last element, a dictionary, when its value is the last.
template <class Take>
void ForEachValue(MarkupElements& elements, Take&& take) {
  std::optional<String> key;
  elements.ForEachChild([&] {
    const bool isKey = elements.Is(u"key");
    if (key) take(StringView(*key));
    key = isKey ? std::optional(elements.Text()) : std::nullopt;
  });
}

/// Goes to the value of that key in the library's outermost dictionary, and calls `take` there.
template <class Take>
void ForValueOf(StringView wanted, StringView text, Take&& take) {
  MarkupElements elements(text);
  if (!elements.Find(u"dict")) return;
  ForEachValue(elements, [&](StringView key) {
    if (key == wanted) take(elements);
  });
}

struct TrackFieldRow {
  StringView key;
  String ListedItem::*field;
};
constexpr TrackFieldRow kTrackFields[] = {{u"Name", &ListedItem::title},
                                          {u"Artist", &ListedItem::artist},
                                          {u"Album", &ListedItem::album},
                                          {u"Genre", &ListedItem::genre}};

String ShownNames(const ListedItem& item) {
  return item.artist.empty() ? item.title : item.artist + u" - " + item.title;
}

/// Its only reference is empty when it has neither a location nor a name.
ListedItem TrackItem(MarkupElements& elements) {
  ListedItem item;
  String location;
  ForEachValue(elements, [&](StringView key) {
    if (key == u"Total Time") item.seconds = SecondsOfMilliseconds(elements.Text());
    if (key == u"Track Number") item.track = TrackOf(elements.Text());
    if (key == u"Location") location = elements.Text();
    for (const TrackFieldRow& row : kTrackFields) {
      if (key == row.key) item.*row.field = elements.Text();
    }
  });
  item.references.push_back(location.empty() ? ShownNames(item) : std::move(location));
  return item;
}

std::size_t TextSize(const ListedItem& item) {
  return item.references.front().size() + item.title.size() + item.artist.size() +
         item.album.size() + item.genre.size();
}

/// The tracks of a library by their numbers in its text, which are any texts: those that lists ask
/// for. Each is numbered here from 0 on.
class Tracks {
 public:
  /// False when there was no room for all that lists ask for.
  bool AreAll() const { return numbers_.size() <= kMostTracks && units_ <= kMostUnits; }

  std::uint32_t NumberOf(const String& id) {
    if (numbers_.size() > kMostTracks) return 0;  // which is told by `AreAll`
    const auto next = static_cast<std::uint32_t>(numbers_.size());
    return numbers_.try_emplace(id, next).first->second;
  }

  void Read(StringView text) {
    tracks_.resize(numbers_.size());
    ForValueOf(u"Tracks", text, [this](MarkupElements& elements) {
      ForEachValue(elements, [&](StringView id) { Take(String(id), elements); });
    });
  }

  /// Null when the library does not tell of it.
  const ListedItems::Shared& At(std::uint32_t number) const { return tracks_[number]; }

 private:
  void Take(const String& id, MarkupElements& elements) {
    const auto wanted = numbers_.find(id);
    if (wanted == numbers_.end() || tracks_[wanted->second]) return;
    ListedItem item = TrackItem(elements);
    if (item.references.front().empty() || units_ > kMostUnits) return;
    units_ += TextSize(item);
    tracks_[wanted->second] = std::make_shared<const ListedItem>(std::move(item));
  }

  std::unordered_map<String, std::uint32_t> numbers_;
  std::vector<ListedItems::Shared> tracks_;
  std::size_t units_ = 0;  // of their texts
};

/// A list by the numbers of its tracks.
struct NumberedList {
  String name;
  std::vector<std::uint32_t> tracks;
  bool isOwn = false;  // of iTunes
};

void ReadItems(MarkupElements& elements, NumberedList& list, Tracks& tracks) {
  elements.ForEachChild([&] {
    ForEachValue(elements, [&](StringView key) {
      if (key == u"Track ID") list.tracks.push_back(tracks.NumberOf(elements.Text()));
    });
  });
}

NumberedList ReadList(MarkupElements& elements, Tracks& tracks) {
  NumberedList list;
  ForEachValue(elements, [&](StringView key) {
    const bool marks =
        std::find(std::begin(kOwnMarks), std::end(kOwnMarks), key) != std::end(kOwnMarks);
    list.isOwn = list.isOwn || (marks && !elements.Is(u"false"));
    if (key == u"Name") list.name = elements.Text();
    // The marks come first, and lists of iTunes name all tracks that there are.
    if (key == u"Playlist Items" && !list.isOwn) ReadItems(elements, list, tracks);
  });
  return list;
}

std::vector<NumberedList> ReadNumberedLists(StringView text, Tracks& tracks) {
  std::vector<NumberedList> lists;
  ForValueOf(u"Playlists", text, [&](MarkupElements& elements) {
    elements.ForEachChild([&] {
      if (lists.size() > kMostLists) return;
      NumberedList list = ReadList(elements, tracks);
      if (!list.isOwn) lists.push_back(std::move(list));
    });
  });
  return lists;
}

/// Makes lists of up to so many items, as long as there is room for the texts of all.
class ListMaker {
 public:
  ListMaker(const Tracks& tracks, std::size_t most, std::size_t mostText)
      : tracks_(tracks), most_(most), textRoom_(mostText) {}

  ListedList Made(NumberedList numbered) {
    ListedList list;
    list.name = std::move(numbered.name);
    for (const std::uint32_t number : numbered.tracks) {
      const ListedItems::Shared& track = tracks_.At(number);
      if (!track) continue;
      if (list.items.size() == most_) break;
      const std::size_t size = TextSize(*track);
      list.isCut = textRoom_ < size || room_ == 0 || !tracks_.AreAll();
      if (list.isCut) break;
      textRoom_ -= size;
      --room_;
      list.items.Share(track);
    }
    return list;
  }

 private:
  const Tracks& tracks_;
  std::size_t most_;
  std::size_t room_ = kMostItems;
  std::size_t textRoom_;
};

}  // namespace

std::vector<ListedList> ITunesLists(StringView text, std::size_t most) {
  // Either may stand before the other; but few of a library's tracks may be in lists.
  Tracks tracks;
  std::vector<NumberedList> numbered = ReadNumberedLists(text, tracks);
  tracks.Read(text);
  ListMaker maker(tracks, most, text.size() * kMostCopies);
  std::vector<ListedList> lists;
  for (NumberedList& list : numbered) lists.push_back(maker.Made(std::move(list)));
  return lists;
}

}  // namespace norvo

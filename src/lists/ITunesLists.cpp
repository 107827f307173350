#include "lists/ITunesLists.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "lists/ItemNumbers.h"
#include "lists/XmlDocument.h"

namespace norvo {
namespace {

using Tracks = std::unordered_map<String, ListedItem>;

// Each list gets its own copy of a track's texts. All copies together are no more than so many
// times the file's text; a file made to fill the memory shall not.
constexpr std::size_t kMostCopies = 16;

// The marks of lists that iTunes keeps for itself, each with a value other than <false/>.
constexpr std::string_view kOwnMarks[] = {
    "Master",    "Folder",   "Distinguished Kind", "Music",        "Movies",
    "TV Shows",  "Podcasts", "Audiobooks",         "Books",        "iTunesU",
    "Ringtones", "Apps",     "Purchased Music",    "Party Shuffle"};

/// Calls `take` with each key of a dictionary and the element of its value.
template <class Take>
void ForEachValue(pugi::xml_node dictionary, Take&& take) {
  for (const pugi::xml_node key : dictionary.children()) {
    if (IsElement(key, "key")) take(std::string_view(key.child_value()), key.next_sibling());
  }
}

pugi::xml_node FirstDictionary(pugi::xml_node node) {
  while (node && !IsElement(node, "dict")) node = NextNode(node);
  return node;
}

struct FieldRow {
  std::string_view key;
  String ListedItem::*field;
};
constexpr FieldRow kFields[] = {{"Name", &ListedItem::title},
                                {"Artist", &ListedItem::artist},
                                {"Album", &ListedItem::album},
                                {"Genre", &ListedItem::genre}};

String ShownNames(const ListedItem& item) {
  return item.artist.empty() ? item.title : item.artist + u" - " + item.title;
}

/// Its only reference is empty when it has neither a location nor a name.
ListedItem TrackItem(pugi::xml_node track) {
  ListedItem item;
  String location;
  ForEachValue(track, [&](std::string_view key, pugi::xml_node value) {
    if (key == "Total Time") item.seconds = SecondsOfMilliseconds(TextOf(value));
    if (key == "Track Number") item.track = TrackOf(TextOf(value));
    if (key == "Location") location = TextOf(value);
    for (const FieldRow& row : kFields) {
      if (key == row.key) item.*row.field = TextOf(value);
    }
  });
  item.references.push_back(location.empty() ? ShownNames(item) : std::move(location));
  return item;
}

Tracks ReadTracks(pugi::xml_node dictionary) {
  Tracks tracks;
  for (const pugi::xml_node key : dictionary.children("key")) {
    ListedItem item = TrackItem(key.next_sibling());
    if (!item.references.front().empty()) tracks.try_emplace(TextOf(key), std::move(item));
  }
  return tracks;
}

std::size_t TextSize(const ListedItem& item) {
  return item.references.front().size() + item.title.size() + item.artist.size() +
         item.album.size() + item.genre.size();
}

/// Makes lists of up to so many items, as long as there is room for the texts of all.
class ListMaker {
 public:
  ListMaker(Tracks tracks, std::size_t most, std::size_t mostText)
      : tracks_(std::move(tracks)), most_(most), textRoom_(mostText) {}

  void Add(pugi::xml_node dictionary) {
    ListedList list;
    pugi::xml_node items;
    bool isOwn = false;
    ForEachValue(dictionary, [&](std::string_view key, pugi::xml_node value) {
      const bool marks =
          std::find(std::begin(kOwnMarks), std::end(kOwnMarks), key) != std::end(kOwnMarks);
      isOwn = isOwn || (marks && !IsElement(value, "false"));
      if (key == "Name") list.name = TextOf(value);
      if (key == "Playlist Items") items = value;
    });
    if (isOwn) return;
    for (const pugi::xml_node item : items.children()) AddItem(list, item);
    lists_.push_back(std::move(list));
  }

  std::size_t Count() const { return lists_.size(); }
  std::vector<ListedList> Lists() && { return std::move(lists_); }

 private:
  void AddItem(ListedList& list, pugi::xml_node dictionary) {
    ForEachValue(dictionary, [&](std::string_view key, pugi::xml_node value) {
      if (key != "Track ID") return;
      const auto track = tracks_.find(TextOf(value));
      if (track == tracks_.end()) return;
      const std::size_t size = TextSize(track->second);
      if (list.items.size() == most_) return;
      list.isCut = list.isCut || textRoom_ < size;
      if (list.isCut) return;
      textRoom_ -= size;
      list.items.push_back(track->second);
    });
  }

  Tracks tracks_;
  std::size_t most_;
  std::size_t textRoom_;
  std::vector<ListedList> lists_;
};

}  // namespace

std::vector<ListedList> ITunesLists(StringView text, std::size_t most) {
  const XmlDocument document(text);
  pugi::xml_node tracks;
  pugi::xml_node lists;
  ForEachValue(FirstDictionary(document.Root()), [&](std::string_view key, pugi::xml_node value) {
    if (key == "Tracks") tracks = value;
    if (key == "Playlists") lists = value;
  });
  ListMaker maker(ReadTracks(tracks), most, text.size() * kMostCopies);
  for (const pugi::xml_node list : lists.children()) {
    if (maker.Count() > kMostLists) break;
    maker.Add(list);
  }
  return std::move(maker).Lists();
}

}  // namespace norvo

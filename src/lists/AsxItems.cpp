#include "lists/AsxItems.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "lists/ItemNumbers.h"
#include "lists/ItemText.h"
#include "lists/MarkupScanner.h"
#include "lists/XmlEntities.h"

namespace norvo {
namespace {

/// An entry on its way through the tags. Names come from elements and from Params, which go first.
struct OpenEntry {
  std::vector<String> references;
  String title;
  String author;
  String paramName;
  String artist;
  String album;
  String otherAlbum;
  double seconds = 0;
};

struct ParamRow {
  StringView name;
  String OpenEntry::*field;
};
constexpr ParamRow kParams[] = {{u"Name", &OpenEntry::paramName},
                                {u"Artist", &OpenEntry::artist},
                                {u"Album", &OpenEntry::album},
                                {u"WM/AlbumTitle", &OpenEntry::otherAlbum}};

String ShownText(StringView raw) {
  return OnOneLine(DecodeEntities(raw));
}

/// Neither files nor addresses have angle brackets: from there on it is what a forgotten quote
/// took in.
String ReferenceText(StringView raw) {
  return OnOneLine(String(raw.substr(0, std::min(FindUnit(raw, u'<'), FindUnit(raw, u'>')))));
}

ListedItem Finished(OpenEntry entry) {
  ListedItem item;
  item.references = std::move(entry.references);
  item.title = std::move(entry.paramName.empty() ? entry.title : entry.paramName);
  item.artist = std::move(entry.artist.empty() ? entry.author : entry.artist);
  item.album = std::move(entry.album.empty() ? entry.otherAlbum : entry.album);
  item.seconds = entry.seconds;
  return item;
}

/// Makes items of the tags that no banner hides.
class EntryCollector {
 public:
  void TakeTag(const MarkupScanner& tags) {
    if (tags.Opens(u"Entry") || tags.Closes(u"Entry")) {
      EndEntry();
      if (tags.Opens(u"Entry") && !tags.IsSelfClosing()) entry_.emplace();
    } else if (tags.Opens(u"EntryRef")) {
      EndEntry();
      AddList(tags.Attribute(u"href"));
    } else if (entry_ && tags.Opens(u"Ref")) {
      AddReference(tags.Attribute(u"href"));
    } else if (entry_ && tags.Opens(u"Param")) {
      TakeParam(tags.Attribute(u"name"), tags.Attribute(u"value"));
    } else if (entry_ && tags.Opens(u"Duration")) {
      entry_->seconds = SecondsOf(tags.Attribute(u"value"));
    } else if (!tags.IsSelfClosing()) {
      if (tags.Opens(u"Title")) element_ = TitleElement();
      if (tags.Opens(u"Author") && entry_) element_ = &entry_->author;
    }
  }

  /// The text in front of a tag, whatever the tag.
  void TakeText(StringView text) {
    String* const element = std::exchange(element_, nullptr);
    if (element != nullptr && element->empty()) *element = ShownText(text);
  }

  void EndEntry() {
    element_ = nullptr;
    if (entry_ && !entry_->references.empty()) list_.items.Add(Finished(std::move(*entry_)));
    entry_.reset();
  }

  std::size_t Count() const { return list_.items.size(); }
  ListedList List() && { return std::move(list_); }

 private:
  /// Another list, of which a player takes the entries: mostly of a station on the internet.
  void AddList(StringView href) {
    String reference = ReferenceText(href);
    if (!reference.empty()) list_.items.Add().references.push_back(std::move(reference));
  }

  /// Outside the entries the title is the list's, but only in front of them.
  String* TitleElement() {
    if (entry_) return &entry_->title;
    return list_.items.empty() ? &list_.name : nullptr;
  }

  void AddReference(StringView href) {
    String reference = ReferenceText(href);
    if (!reference.empty()) entry_->references.push_back(std::move(reference));
  }

  void TakeParam(StringView name, StringView value) {
    name = CleanText(name);
    for (const ParamRow& row : kParams) {
      if (!EqualsIgnoreCase(name, row.name)) continue;
      String shown = ShownText(value);
      if (!shown.empty()) (*entry_).*row.field = std::move(shown);
    }
  }

  ListedList list_;
  std::optional<OpenEntry> entry_;
  String* element_ = nullptr;  // of entry_ or list_: takes the text that comes next
};

/// Places of the Banner tags that hide what follows them, up to the next </Banner>: it comes before
/// another Banner begins, and before the end of the entry that the Banner stands in.
std::vector<std::size_t> HidingBanners(StringView text) {
  std::vector<std::size_t> hiding;
  constexpr std::size_t kNone = StringView::npos;
  std::size_t open = kNone;
  std::size_t entries = 0;  // opened since then
  for (MarkupScanner tags(text); tags.Next() && !tags.Closes(u"Asx");) {
    if (tags.Opens(u"Banner") && !tags.IsSelfClosing()) {
      open = tags.Position();
      entries = 0;
    } else if (open != kNone && tags.Closes(u"Banner")) {
      hiding.push_back(open);
      open = kNone;
    } else if (tags.Opens(u"Entry") && !tags.IsSelfClosing()) {
      ++entries;
    } else if (tags.Closes(u"Entry")) {
      if (entries == 0) open = kNone;
      if (entries > 0) --entries;
    }
  }
  return hiding;
}

void SkipBanner(MarkupScanner& tags) {
  while (tags.Next() && !tags.Closes(u"Banner")) {
  }
}

}  // namespace

ListedList AsxItems(StringView text, std::size_t most) {
  std::optional<std::vector<std::size_t>> hiding;  // looked for at the first banner, which is rare
  const auto hides = [&](const MarkupScanner& tags) {
    if (!tags.Opens(u"Banner")) return false;
    if (!hiding) hiding = HidingBanners(text);
    return std::binary_search(hiding->begin(), hiding->end(), tags.Position());
  };
  EntryCollector entries;
  MarkupScanner tags(text);
  while (tags.Next() && !tags.Closes(u"Asx") && entries.Count() < most) {
    entries.TakeText(tags.TextBefore());
    if (hides(tags)) {
      SkipBanner(tags);
    } else {
      entries.TakeTag(tags);
    }
  }
  entries.TakeText(tags.TextBefore());
  entries.EndEntry();
  ListedList list = std::move(entries).List();
  // An EntryRef ends the entry before it, so that both may come at once.
  if (list.items.size() > most) list.items.RemoveLast();
  return list;
}

}  // namespace norvo

#pragma once

#include <optional>

#include "model/FormatEntry.h"
#include "model/PlaylistRecord.h"
#include "services/Component.h"
#include "services/DataCop.h"

namespace norvo {

/// Log messages of one reader; each is followed by the reference.
struct ResolverMessages {
  StringView fileNotFound;
  StringView invalidArgument;
};

/// The step that every reader performs for each item: judge the reference, complete the entry,
/// register the media file, add the entry. Items that fail are logged and dropped.
class ItemResolver {
 public:
  /// `folder` is the playlist's folder with a trailing backslash.
  ItemResolver(Component& component, PlaylistRecord& playlist, String folder,
               ResolverMessages messages);

  /// A judged reference, as rewritten.
  struct Item {
    String reference;
    DataCop::Status status = DataCop::Status::Ok;
  };

  /// First half: judges the reference and sets the entry's address. Nothing, with a log line, for
  /// a reference of type 10. Error 6 for more items than any playlist has; see also
  /// `CheckLine`.
  std::optional<Item> Judge(FormatEntry& entry, StringView reference);
  /// Second half: completes the entry from the extended-information text, then adds or drops it.
  /// Error 6 for more entries than any playlist has; error 7 when the entries' texts, with those of
  /// their tags, would fill the memory.
  void Complete(const std::shared_ptr<FormatEntry>& entry, const Item& item, StringView info,
                StringView label);
  /// Both halves; false for a reference of type 10.
  bool Resolve(const std::shared_ptr<FormatEntry>& entry, StringView reference, StringView info,
               StringView label);

 private:
  void CountItem(StringView reference);
  bool JudgeItem(FormatEntry& entry, Item& item);
  void CountTexts(const FormatEntry& entry);
  ItemOutcome AddOrDrop(const std::shared_ptr<FormatEntry>& entry, const Item& item,
                        StringView label);
  bool Register(FormatEntry& entry, const String& path, StringView label);
  const std::shared_ptr<FormatEntry>& EmptyLike(FormatEntry& entry);

  Component& component_;
  PlaylistRecord& playlist_;
  String folder_;
  ResolverMessages messages_;
  DataCop::Destinations destinations_;
  std::size_t items_ = 0;      // judged so far
  std::size_t longTexts_ = 0;  // units of the texts of all entries that have unusually much of them
  std::shared_ptr<FormatEntry> empty_;  // for observers that want no entries
  // Their memory serves for all items.
  Item item_;
  String title_;
  MediaRecord record_;
};

/// Category labels of the registered files.
inline constexpr StringView kMusicLabel = u"Music PlayLists";
inline constexpr StringView kMediaLabel = u"Media PlayLists";

}  // namespace norvo

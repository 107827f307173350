#include "move/MoveCheck.h"

#include "move/NativeCheck.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

constexpr std::size_t kNatives = 4;

class Check {
 public:
  Check(Component& library, Move& move, Console& console)
      : library_(library), move_(move), console_(console) {}

  void Playlist(const MovedPlaylist& playlist) {
    if (playlist.natives.size() != kNatives) {
      console_.LeftOut(ToUtf8(playlist.source) + ": " + std::to_string(playlist.natives.size()) +
                       " of its 4 native playlists were written");
    }
    for (const String& native : playlist.natives) Native(playlist, native);
    for (const MovedItem& item : playlist.items) {
      if (item.song || library_.Machine().AnsiPage().Fits(item.address)) continue;
      console_.LeftOut(ToUtf8(playlist.source) + ": its native playlists cannot tell \"" +
                       ToUtf8(item.address) + "\", which does not fit the 8-bit page");
    }
  }

 private:
  void Native(const MovedPlaylist& playlist, const String& native) {
    const auto [references, whole] = CheckNative(library_, native);
    const std::string name = ToUtf8(native);
    if (!library_.Files().FileExists(native)) {
      return console_.LeftOut(name + ": was written, and is gone now");
    }
    if (!whole || references.size() != playlist.items.size()) {
      console_.LeftOut(name + ": reads back with " + std::to_string(references.size()) + " of " +
                       std::to_string(playlist.items.size()) + " references");
    }
    for (std::size_t i = 0; i < playlist.items.size(); ++i) {
      if (i < references.size()) {
        Reference(playlist.items[i], references[i], name);
      } else if (playlist.items[i].song) {
        ++move_.checked;
      }
    }
  }

  void Reference(const MovedItem& item, const CheckedReference& found, const std::string& native) {
    if (!item.song) return Address(item.address, found, native);
    ++move_.checked;
    const Song& song = move_.songs[*item.song];
    const bool right = found.kind == CheckedReference::Kind::Found &&
                       EqualsIgnoreCase(found.reference, song.place) && HasSize(song);
    if (right) {
      ++move_.found;
    } else if (song.state != Song::State::LeftOut) {  // which has been told already
      console_.LeftOut(native + ": \"" + ToUtf8(found.reference) + "\" does not lead to " +
                       ToUtf8(song.source));
    }
  }

  void Address(const String& address, const CheckedReference& found, const std::string& native) {
    const CodePage& page = library_.Machine().AnsiPage();
    if (found.reference == page.Decode(page.Encode(address))) return;
    console_.LeftOut(native + ": \"" + ToUtf8(found.reference) + "\" was " + ToUtf8(address));
  }

  bool HasSize(const Song& song) {
    const auto facts = library_.Files().FactsOf(song.place);
    return facts && facts->size == song.size;
  }

  Component& library_;
  Move& move_;
  Console& console_;
};

}  // namespace

void CheckMove(Component& library, Move& move, Console& console) {
  Check check(library, move, console);
  for (std::size_t i = 0; i < move.playlists.size(); ++i) {
    const MovedPlaylist& playlist = move.playlists[i];
    console.Bar().Advance("verifying", i + 1, move.playlists.size(), playlist.source);
    const bool restored = playlist.state == MovedPlaylist::State::Restored ||
                          playlist.state == MovedPlaylist::State::AlreadyRestored;
    if (restored) check.Playlist(playlist);
  }
}

}  // namespace norvo

#pragma once

#include <memory>

#include "model/Entries.h"
#include "model/PlaylistTypes.h"

namespace norvo {

/// Who gave a playlist its name: the host, or the playlist itself, by its text or its file's name.
/// A name of the latter kind is not trusted as a path.
enum class NameOrigin { Host, Playlist };

/// One playlist as it flows through the library: readers fill it, writers consume it.
struct PlaylistRecord {
  std::shared_ptr<norvo::Entries> entries = std::make_shared<norvo::Entries>();
  String originalFileName;  ///< with its extension, without its folder
  std::int32_t type = playlist_type::kUnknown;
  Variant totalSongsStore;  ///< the count that a PLS file declares, or what a host has set
  String asxAuthor;
  String asxTitle;
  String asxVersion;
  String asxPlayListAttribute;
  String asxAllowShuffle;
  String name;
  NameOrigin nameOrigin = NameOrigin::Host;
  String creationTime;
  String asxAlbum;
  String asxArtist;

  /// Sets the name by the type's rule: type 1 keeps the text whole; the other types keep what
  /// precedes the first occurrence of their extension, and leave the name as it was when the text
  /// lacks it; an unknown type gives the empty name.
  void SetName(StringView text, NameOrigin origin);
};

}  // namespace norvo

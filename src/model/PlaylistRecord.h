#pragma once

#include <memory>

#include "model/Entries.h"
#include "model/PlaylistTypes.h"

namespace norvo {

/// Who gave a playlist its name: the host, or the playlist itself, by its text or its file's name.
/// A name of the latter kind is not trusted as a path.
enum class NameOrigin {
  Host,     ///< it is taken as it is
  Playlist  ///< it names a file of the data area and nothing else
};

/// One playlist as it flows through the library: readers fill it, writers consume it. What is
/// behind the properties of a `PlayList`.
struct PlaylistRecord {
  std::shared_ptr<norvo::Entries> entries = std::make_shared<norvo::Entries>();  ///< never null
  String originalFileName;                      ///< with its extension, without its folder
  std::int32_t type = playlist_type::kUnknown;  ///< one of playlist_type
  Variant totalSongsStore;      ///< the count that a PLS file declares, or what a host has set
  String asxAuthor;             ///< as the list tells it
  String asxTitle;              ///< the playlist's
  String asxVersion;            ///< of the format
  String asxPlayListAttribute;  ///< as the list tells it
  String asxAllowShuffle;       ///< as the list tells it
  String name;                  ///< without an extension; of type 1 with it
  NameOrigin nameOrigin = NameOrigin::Host;  ///< who gave it
  String creationTime;                       ///< a date as text
  String asxAlbum;                           ///< as the list tells it
  String asxArtist;                          ///< as the list tells it

  /// Sets the name by the type's rule: type 1 keeps the text whole; the other types keep what
  /// precedes the first occurrence of their extension, and leave the name as it was when the text
  /// lacks it; an unknown type gives the empty name.
  void SetName(StringView text, NameOrigin origin);
};

}  // namespace norvo

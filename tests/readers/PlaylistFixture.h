#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/AutomationObject.h"
#include "support/LibraryTest.h"

namespace norvo {

/// What is logged of an entry without an address.
inline constexpr const char* kNoName = "Must set the SourceURL property to obtain the File name ";

/// A media file of 200 bytes without a tag.
std::string UntaggedMedia();
/// A media file of 228 bytes whose ID3v1 tag holds the names and the genre Rock.
std::string MediaWithOldTag(std::string_view song, std::string_view artist, std::string_view album);
/// A media file whose ID3v2 tag holds the frames (identifier and text).
std::string MediaWithFrames(const std::vector<std::pair<std::string, std::string>>& frames);

/// Lines joined by CR LF, with one at the end.
std::string TextOf(const Lines& lines);

/// Calls a member with one argument.
Variant CallWith(const ObjectRef& object, StringView member, Variant argument);

/// Reads playlists on an installed product through the playlist's public interface. The last one
/// read is looked at by the short functions.
class PlaylistFixture : public LibraryTest {
 protected:
  PlaylistFixture() { platform->ConfigureProduct(); }

  ObjectRef NewPlayList(std::int32_t type);
  /// Reads the file at the path into the playlist in hand.
  bool Read(StringView path);
  /// Puts the text at the path and reads it into a new playlist of the type.
  bool ReadText(StringView path, std::int32_t type, std::string_view text);

  /// A property of the playlist in hand.
  std::string Property(StringView name);
  std::int32_t Kept();
  std::int32_t CollectionType();
  ObjectRef EntryAt(std::int32_t index);
  /// A property of an entry of the playlist in hand as text; "no entry" past the last.
  std::string Field(std::int32_t index, StringView name);
  /// One property of all entries.
  Lines Fields(StringView name);
  Lines LogLines() { return Utf8(log); }
  /// Source, destination expression and category of each registered file, separated by " | ".
  Lines Registered();

  ObjectRef playlist;
};

}  // namespace norvo

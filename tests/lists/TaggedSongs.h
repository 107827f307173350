#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Sound files as bytes, by the rules of their kinds: tags around hardly any sound.
namespace norvo::songs {

/// Texts or bodies by their names in the tag.
using Named = std::vector<std::pair<std::string, std::string>>;

/// @{
/// A number of so many bytes.
std::string BigEndian(std::uint64_t number, int bytes);
std::string LittleEndian(std::uint64_t number, int bytes);
/// @}

/// @{
/// Bodies of an ID3v2 text frame, by the number of their encoding.
std::string Latin1(std::string_view bytes);      ///< 0
std::string Utf16(std::u16string_view text);     ///< 1, little-endian with its mark
std::string Utf16Big(std::u16string_view text);  ///< 2, without a mark
std::string Utf8(std::string_view bytes);        ///< 3
/// @}

/// An ID3v2 frame; `flags` is the second byte of its flags.
std::string Frame(int version, std::string_view id, std::string_view body, char flags = 0);
/// An ID3v2 tag of that version (2 to 4) around its frames.
std::string Id3v2(int version, std::string_view frames);
std::string Id3v2(int version, const Named& frames);
/// An ID3v1.1 tag; 17 is "Rock".
std::string Id3v1(std::string_view title, std::string_view artist, std::string_view album,
                  int track);
/// An APEv2 tag with its footer alone.
std::string ApeTag(const Named& items);
/// So many frames of MPEG-1 layer III, 128 kbit/s, 44.1 kHz: a thousand are about 26 seconds.
std::string MpegSound(int frames);

/// A FLAC file of so many seconds.
std::string Flac(const Named& comments, int seconds);
/// Ogg files of so many seconds.
std::string OggVorbis(const Named& comments, int seconds);
std::string Opus(const Named& comments, int seconds);
/// An MP4 file of so many seconds, by the names of its items.
std::string Mp4(const Named& texts, int track, int seconds);
/// An ASF file of so many seconds.
std::string Asf(std::u16string_view title, std::u16string_view artist, std::u16string_view album,
                int track, int seconds);
/// A WAV file of so many seconds, with the chunks given, before its sound.
std::string Wav(const Named& chunks, int seconds);
/// An AIFF file of so many seconds, with the chunks given.
std::string Aiff(const Named& chunks, int seconds);
/// The body of the LIST chunk of a WAV file.
std::string InfoList(const Named& texts);
/// A module of four channels.
std::string Module(std::string_view title);

}  // namespace norvo::songs

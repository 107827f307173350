#include "lists/SongTags.h"

#include <taglib/mpegfile.h>
#include <taglib/textidentificationframe.h>
#include <taglib/tpropertymap.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "automation/RunTimeError.h"
#include "lists/ItemText.h"
#include "lists/SongFile.h"
#include "text/CodePage.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// As in the tags that the library itself reads.
constexpr unsigned kLongestText = 4096;

/// What was written as one byte a character is UTF-8 where it can be, and else of the code page,
/// which differs from Latin-1 in the characters that are controls there.
String MeantByBytes(const String& text) {
  if (std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0xFF; })) return text;
  const std::string bytes(text.begin(), text.end());
  const std::optional<String> utf8 = FromUtf8(bytes);
  return utf8 ? *utf8 : Windows1252().Decode(bytes);
}

String ReadableText(const TagLib::String& tagText) {
  const TagLib::String cut = tagText.substr(0, kLongestText);
  String text;
  for (const wchar_t unit : cut) text += static_cast<char16_t>(unit);
  if (!IsWholeUtf16(text)) text = FromUtf8Lossy(ToUtf8(text));
  return OnOneLine(MeantByBytes(text));
}

TagLib::String First(const TagLib::StringList& values) {
  return values.isEmpty() ? TagLib::String() : values.front();
}

TagLib::String First(const TagLib::PropertyMap& properties, const char* key) {
  return First(properties[key]);
}

void Fill(String& field, const TagLib::String& text) {
  if (field.empty()) field = ReadableText(text);
}

void Fill(int& track, int number) {
  if (track == 0) track = std::max(number, 0);
}

using TextFrame = TagLib::ID3v2::TextIdentificationFrame;

/// The first value of the frames of one kind.
template <class ValuesOf>
TagLib::String First(const TagLib::ID3v2::FrameListMap& frames, const char* id, ValuesOf valuesOf) {
  for (const TagLib::ID3v2::Frame* const frame : frames[id]) {
    const auto* const text = dynamic_cast<const TextFrame*>(frame);
    const TagLib::StringList values = text ? valuesOf(*text) : TagLib::StringList();
    if (!values.isEmpty()) return values.front();
  }
  return {};
}

/// A property can have several values, of which the plain functions of a tag make one text.
void Add(SongTags& tags, const TagLib::PropertyMap& properties) {
  Fill(tags.artist, First(properties, "ARTIST"));
  Fill(tags.album, First(properties, "ALBUM"));
  Fill(tags.title, First(properties, "TITLE"));
  Fill(tags.genre, First(properties, "GENRE"));
  Fill(tags.track, First(properties, "TRACKNUMBER").toInt());
}

/// The same of the frames that the properties would be made of, which takes a sixth of the work.
void Add(SongTags& tags, const TagLib::ID3v2::FrameListMap& frames) {
  const auto fields = [](const TextFrame& frame) { return frame.fieldList(); };
  // A number becomes the genre's name only among the properties.
  const auto genres = [](const TextFrame& frame) { return frame.asProperties()["GENRE"]; };
  Fill(tags.artist, First(frames, "TPE1", fields));
  Fill(tags.album, First(frames, "TALB", fields));
  Fill(tags.title, First(frames, "TIT2", fields));
  Fill(tags.genre, First(frames, "TCON", genres));
  Fill(tags.track, First(frames, "TRCK", fields).toInt());
}

void AddFirstTag(SongTags& tags, TagLib::File& file) {
  auto* const mpeg = dynamic_cast<TagLib::MPEG::File*>(&file);
  const TagLib::ID3v2::Tag* const frames = mpeg ? mpeg->ID3v2Tag() : nullptr;
  if (frames && !frames->isEmpty()) {
    Add(tags, frames->frameListMap());
  } else {
    Add(tags, file.properties());
  }
}

/// What the properties, which are those of one tag, do not tell and another tag of the file does.
void Add(SongTags& tags, const TagLib::Tag& tag) {
  if (tags.artist.empty()) tags.artist = ReadableText(tag.artist());
  if (tags.album.empty()) tags.album = ReadableText(tag.album());
  if (tags.title.empty()) tags.title = ReadableText(tag.title());
  if (tags.genre.empty()) tags.genre = ReadableText(tag.genre());
  if (tags.track == 0) Fill(tags.track, static_cast<int>(tag.track()));
}

double SecondsOfSound(const TagLib::File& file) {
  const TagLib::AudioProperties* const audio = file.audioProperties();
  return audio ? std::max(audio->lengthInMilliseconds(), 0) / 1000.0 : 0;
}

/// By the frame of an MP3 file's tag that tells the length.
double SecondsOfTag(TagLib::File& file) {
  const auto* const mpeg = dynamic_cast<TagLib::MPEG::File*>(&file);
  return mpeg ? std::max(First(mpeg->properties(), "LENGTH").toInt(), 0) / 1000.0 : 0;
}

/// A file that remembers why it could not be read: the tag library takes that for its end.
class RememberingFile final : public BinaryFile {
 public:
  explicit RememberingFile(std::unique_ptr<BinaryFile> file) : file_(std::move(file)) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
    return Remembering<std::size_t>([&] { return file_->ReadAt(offset, buffer); });
  }
  std::uint64_t Size() override {
    return Remembering<std::uint64_t>([&] { return file_->Size(); });
  }

  void RaiseFailure() const {
    if (failure_) throw RunTimeError(*failure_);
  }

 private:
  template <class Answer, class Work>
  Answer Remembering(Work&& work) {
    try {
      return work();
    } catch (const RunTimeError& error) {
      failure_ = error;
      throw;
    }
  }

  std::unique_ptr<BinaryFile> file_;
  std::optional<RunTimeError> failure_;
};

double LengthOf(TagLib::File& file) {
  const double seconds = SecondsOfSound(file);
  return seconds > 0 ? seconds : SecondsOfTag(file);
}

std::optional<SongTags> ReadTags(BinaryFile& bytes, StringView name, bool withLength) {
  const SongFile song(bytes, name, withLength);
  if (!song.File()) return std::nullopt;
  SongTags tags;
  if (song.ChunkTag()) Add(tags, song.ChunkTag()->properties());
  AddFirstTag(tags, *song.File());
  Add(tags, *song.File()->tag());
  if (withLength) tags.seconds = LengthOf(*song.File());
  return tags;
}

}  // namespace

std::optional<SongTags> ReadSongTags(FileSystem& files, StringView path, bool withLength) {
  RememberingFile bytes(files.OpenForReading(path));
  std::optional<SongTags> tags;
  try {
    tags = ReadTags(bytes, LastComponent(path), withLength);
  } catch (const std::exception&) {
    // What the tag library cannot bear is no sound file.
  }
  bytes.RaiseFailure();
  return tags;
}

}  // namespace norvo

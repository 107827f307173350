#include "lists/SongTags.h"

#include <taglib/mpegfile.h>
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

String TextOf(const TagLib::String& tagText) {
  const TagLib::String cut = tagText.substr(0, kLongestText);
  String text;
  for (const wchar_t unit : cut) text += static_cast<char16_t>(unit);
  if (!IsWholeUtf16(text)) text = FromUtf8Lossy(ToUtf8(text));
  return OnOneLine(MeantByBytes(text));
}

TagLib::String First(const TagLib::PropertyMap& properties, const char* key) {
  const TagLib::StringList values = properties[key];
  return values.isEmpty() ? TagLib::String() : values.front();
}

void Fill(String& field, const TagLib::String& text) {
  if (field.empty()) field = TextOf(text);
}

void Fill(int& track, int number) {
  if (track == 0) track = std::max(number, 0);
}

/// A property can have several values, of which the plain functions of a tag make one text.
void Add(SongTags& tags, const TagLib::PropertyMap& properties) {
  Fill(tags.artist, First(properties, "ARTIST"));
  Fill(tags.album, First(properties, "ALBUM"));
  Fill(tags.title, First(properties, "TITLE"));
  Fill(tags.genre, First(properties, "GENRE"));
  Fill(tags.track, First(properties, "TRACKNUMBER").toInt());
}

/// What the properties, which are those of one tag, do not tell and another tag of the file does.
void Add(SongTags& tags, const TagLib::Tag& tag) {
  Fill(tags.artist, tag.artist());
  Fill(tags.album, tag.album());
  Fill(tags.title, tag.title());
  Fill(tags.genre, tag.genre());
  Fill(tags.track, static_cast<int>(tag.track()));
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

std::optional<SongTags> ReadTags(BinaryFile& bytes, StringView name) {
  const SongFile song(bytes, name);
  if (!song.File()) return std::nullopt;
  SongTags tags;
  if (song.ChunkTag()) Add(tags, song.ChunkTag()->properties());
  Add(tags, song.File()->properties());
  Add(tags, *song.File()->tag());
  tags.seconds = SecondsOfSound(*song.File());
  if (tags.seconds <= 0) tags.seconds = SecondsOfTag(*song.File());
  return tags;
}

}  // namespace

std::optional<SongTags> ReadSongTags(FileSystem& files, StringView path) {
  RememberingFile bytes(files.OpenForReading(path));
  std::optional<SongTags> tags;
  try {
    tags = ReadTags(bytes, LastComponent(path));
  } catch (const std::exception&) {
    // What the tag library cannot bear is no sound file.
  }
  bytes.RaiseFailure();
  return tags;
}

}  // namespace norvo

#include "tags/TagCache.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <numeric>
#include <span>

namespace norvo {
namespace {

constexpr std::size_t kBlock = 64 * 1024;  // bytes

/// Texts that the songs of an album have in common.
constexpr StringView AudioTag::*kShared[] = {&AudioTag::album, &AudioTag::artist, &AudioTag::genre,
                                             &AudioTag::year};

bool IsWide(StringView text) {
  constexpr std::uint64_t kHigherBytes = InEachLane(static_cast<char16_t>(0xFF00));
  return AnyWord(text, u'\0', [](std::uint64_t word) { return word & kHigherBytes; });
}

/// The path's fingerprint and the stamp in one, which saves a third of a song's room. Of one path
/// two are the same exactly when the stamps are.
Fingerprint FileOf(const Fingerprint& path, const FileStamp& stamp) {
  return {path.first ^ std::bit_cast<std::uint64_t>(stamp.size),
          path.second ^ static_cast<std::uint64_t>(stamp.modified)};
}

/// Puts texts together as bytes.
class Packing {
 public:
  explicit Packing(bool isWide) : isWide_(isWide) {}

  void Add(StringView text) {
    if (isWide_) {
      if (!text.empty()) std::memcpy(bytes_ + size_, text.data(), text.size() * sizeof(char16_t));
      size_ += text.size() * sizeof(char16_t);
    } else {
      for (const char16_t unit : text) bytes_[size_++] = static_cast<char>(unit);
    }
  }
  std::string_view Bytes() const { return {bytes_, size_}; }

 private:
  bool isWide_;
  std::size_t size_ = 0;
  char bytes_[TagCache::kLongestText * sizeof(char16_t)];
};

/// The reverse; gives the place behind the text.
char16_t* Unpack(const char* bytes, std::size_t units, bool isWide, char16_t* to) {
  if (isWide) {
    std::memcpy(to, bytes, units * sizeof(char16_t));
  } else {
    for (std::size_t i = 0; i < units; ++i) to[i] = static_cast<unsigned char>(bytes[i]);
  }
  return to + units;
}

std::size_t Sum(std::span<const std::uint16_t> lengths) {
  return std::accumulate(lengths.begin(), lengths.end(), std::size_t{0});
}

}  // namespace

std::optional<std::size_t> TagCache::FindSong(const Fingerprint& file) const {
  return songsByFile_.Find(file.first, [&](std::size_t at) { return songs_[at].file == file; });
}

std::optional<AudioTag> TagCache::Find(const Fingerprint& path, const FileStamp& stamp) {
  const std::optional<std::size_t> place = FindSong(FileOf(path, stamp));
  if (!place) return std::nullopt;
  const Song& song = songs_[*place];
  const Album& album = albums_[song.album];
  const char16_t* text = found_.data();
  char16_t* const title =
      Unpack(TextAt(album.texts), Sum(album.lengths), album.isWide, found_.data());
  Unpack(TextAt(song.title), song.titleLength, album.isWide, title);
  AudioTag tag;
  for (std::size_t i = 0; i < album.lengths.size(); ++i) {
    tag.*kShared[i] = {text, album.lengths[i]};
    text += album.lengths[i];
  }
  tag.song = {title, song.titleLength};
  tag.kind = album.kind;
  tag.duration = song.duration;
  tag.track = song.track;
  return tag;
}

/// Of a text's bytes.
const char* TagCache::TextAt(std::uint32_t place) const {
  return blocks_[place / kBlock].get() + place % kBlock;
}

/// Place of a copy of so many bytes, at most those of a block; nothing when all room is taken.
std::optional<std::uint32_t> TagCache::KeepText(std::string_view bytes) {
  if (left_ == 0 || bytes.size() > left_) {
    if ((blocks_.size() + 1) * kBlock > kMostText) return std::nullopt;
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlock));
    left_ = kBlock;
  }
  const std::size_t at = kBlock - left_;
  std::copy(bytes.begin(), bytes.end(), blocks_.back().get() + at);
  left_ -= bytes.size();
  return static_cast<std::uint32_t>((blocks_.size() - 1) * kBlock + at);
}

std::optional<std::uint32_t> TagCache::AlbumOf(const AudioTag& tag, bool isWide) {
  Album album{0, {}, tag.kind, isWide};
  Packing packing(isWide);
  for (std::size_t i = 0; i < album.lengths.size(); ++i) {
    const StringView text = tag.*kShared[i];
    album.lengths[i] = static_cast<std::uint16_t>(text.size());
    packing.Add(text);
  }
  const std::string_view bytes = packing.Bytes();
  const std::uint64_t hash = FingerprintOf(bytes).first;
  const auto bytesOf = [this](std::size_t at) {
    const Album& other = albums_[at];
    return std::string_view(TextAt(other.texts), Sum(other.lengths) * (other.isWide ? 2 : 1));
  };
  const std::optional<std::size_t> known = albumsByText_.Find(hash, [&](std::size_t at) {
    const Album& other = albums_[at];
    return other.lengths == album.lengths && other.kind == album.kind &&
           other.isWide == album.isWide && bytesOf(at) == bytes;
  });
  if (known) return static_cast<std::uint32_t>(*known);
  if (albums_.size() >= kMostTags) return std::nullopt;
  const std::optional<std::uint32_t> texts = KeepText(bytes);
  if (!texts) return std::nullopt;
  album.texts = *texts;
  albumsByText_.Reserve(albums_.size() + 1,
                        [&](std::size_t at) { return FingerprintOf(bytesOf(at)).first; });
  albums_.push_back(album);
  albumsByText_.Add(albums_.size() - 1, hash);
  return static_cast<std::uint32_t>(albums_.size() - 1);
}

void TagCache::KeepSong(const Song& song) {
  songsByFile_.Reserve(songs_.size() + 1, [this](std::size_t at) { return songs_[at].file.first; });
  songs_.push_back(song);
  songsByFile_.Add(songs_.size() - 1, song.file.first);
}

void TagCache::Keep(const Fingerprint& path, const FileStamp& stamp, const AudioTag& tag) {
  std::size_t units = tag.song.size();
  bool isWide = IsWide(tag.song);
  for (const auto each : kShared) {
    units += (tag.*each).size();
    isWide = isWide || IsWide(tag.*each);
  }
  const Fingerprint file = FileOf(path, stamp);
  if (units > kLongestText || songs_.size() >= kMostTags || FindSong(file)) return;
  const std::optional<std::uint32_t> album = AlbumOf(tag, isWide);
  Packing title(isWide);
  title.Add(tag.song);
  const std::optional<std::uint32_t> text = album ? KeepText(title.Bytes()) : std::nullopt;
  if (!text) return;
  KeepSong(
      {file, *text, *album, tag.duration, static_cast<std::uint16_t>(tag.song.size()), tag.track});
}

}  // namespace norvo

#include "Song.h"

#include <array>
#include <set>
#include <string_view>
#include <utility>

namespace norvo::bench {
namespace {

constexpr std::size_t kSongsPerAlbum = 20;
constexpr std::size_t kAlbumsPerArtist = 4;

constexpr std::array<std::string_view, 32> kFirstWords = {
    "Silver", "Quiet",  "Broken", "Golden",  "Distant", "Electric", "Hollow", "Crimson",
    "Summer", "Winter", "Velvet", "Paper",   "Lonely",  "Burning",  "Frozen", "Hidden",
    "Early",  "Wild",   "Gentle", "Painted", "Second",  "Northern", "Rising", "Falling",
    "Blue",   "Green",  "Yellow", "Final",   "Little",  "Marble",   "Open",   "Secret"};

constexpr std::array<std::string_view, 32> kSecondWords = {
    "River",   "Mirror", "Garden",   "Station", "Harbour", "Window", "Lantern", "Mountain",
    "Morning", "Street", "Engine",   "Letter",  "Shadow",  "Ocean",  "Circus",  "Highway",
    "Planet",  "Forest", "Echo",     "Bridge",  "Orchard", "Signal", "Thunder", "Voyage",
    "Feather", "Island", "Carnival", "Meadow",  "Compass", "Rain",   "Anthem",  "Sparrow"};

constexpr std::array<std::string_view, 8> kGenres = {"Rock", "Pop",   "Jazz",  "Blues",
                                                     "Folk", "Metal", "Dance", "Classical"};

template <std::size_t Size>
std::string_view Pick(const std::array<std::string_view, Size>& words, Random& random) {
  return words[random.Below(Size)];
}

std::string MakeWords(Random& random) {
  std::string words(Pick(kFirstWords, random));
  words += ' ';
  words += Pick(kSecondWords, random);
  return words;
}

/** A name that is not among the taken ones; it is taken from now on. */
std::string MakeNewName(std::set<std::string>& taken, Random& random) {
  const std::string words = MakeWords(random);
  std::string name = words;
  for (std::size_t number = 2; !taken.insert(name).second; ++number) {
    name = words + ' ' + std::to_string(number);
  }
  return name;
}

std::string TwoDigits(std::size_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::string Song::PathBelowDrive(char separator) const {
  std::string path;
  for (const std::string& folder : {std::string("Music"), artist, album}) {
    path += separator;
    path += folder;
  }
  return path + separator + TwoDigits(track) + ' ' + title + ".mp3";
}

std::vector<Song> MakeSongs(std::size_t count, Random& random) {
  std::vector<Song> songs;
  songs.reserve(count);
  std::set<std::string> artists;
  std::set<std::string> albums;
  Song song;
  for (std::size_t index = 0; index < count; ++index) {
    if (index % (kSongsPerAlbum * kAlbumsPerArtist) == 0) {
      song.artist = MakeNewName(artists, random);
      albums.clear();
    }
    if (index % kSongsPerAlbum == 0) {
      song.album = MakeNewName(albums, random);
      song.genre = Pick(kGenres, random);
      song.year = random.Between(1965, 2003);
    }
    song.title = MakeWords(random);
    song.track = index % kSongsPerAlbum + 1;
    song.seconds = random.Between(100, 599);
    songs.push_back(song);
  }
  return songs;
}

}  // namespace norvo::bench

#include "tags/GenreTable.h"

#include <gtest/gtest.h>

#include <set>

#include "support/LibraryTest.h"
#include "tags/Mp3TagReader.h"
#include "tags/TagBuilder.h"

namespace norvo {
namespace {

constexpr StringView kNames[] = {u"Blues",
                                 u"Classic Rock",
                                 u"Country",
                                 u"Dance",
                                 u"Disco",
                                 u"Funk",
                                 u"Grunge",
                                 u"Hip Hop",
                                 u"Jazz",
                                 u"Metal",
                                 u"New Age",
                                 u"Oldies",
                                 u"Other",
                                 u"Pop",
                                 u"Rhythm n Blues",
                                 u"Rap",
                                 u"Reggae",
                                 u"Rock",
                                 u"Techno",
                                 u"Industrial",
                                 u"Alternative",
                                 u"Ska",
                                 u"Death Metal",
                                 u"Pranks",
                                 u"Soundtrack",
                                 u"Euro Techno",
                                 u"Ambient",
                                 u"Trip Hop",
                                 u"Vocal",
                                 u"Jazz Funk",
                                 u"Fusion",
                                 u"Trance",
                                 u"Classical",
                                 u"Instrumental",
                                 u"Acid",
                                 u"House",
                                 u"Game",
                                 u"Sound Clip",
                                 u"Gospel",
                                 u"Noise",
                                 u"Alternative Rock",
                                 u"Bass",
                                 u"Soul",
                                 u"Punk",
                                 u"Space",
                                 u"Meditative",
                                 u"Instrumental Pop",
                                 u"Instrumental Rock",
                                 u"Ethnic",
                                 u"Gothic",
                                 u"Darkwave",
                                 u"Techno Industrial",
                                 u"Electronic",
                                 u"Pop Folk",
                                 u"Eurodance",
                                 u"Dream",
                                 u"Southern Rock",
                                 u"Comedy",
                                 u"Cult",
                                 u"Gangsta",
                                 u"Top 40",
                                 u"Christian Rap",
                                 u"Pop Funk",
                                 u"Jungle",
                                 u"Native American",
                                 u"Cabaret",
                                 u"New Wave",
                                 u"Psychadelic",
                                 u"Rave",
                                 u"Show Tunes",
                                 u"Trailer",
                                 u"Lo Fi",
                                 u"Tribal",
                                 u"Acid Punk",
                                 u"Acid Jazz",
                                 u"Polka",
                                 u"Retro",
                                 u"Musical",
                                 u"Rock n Roll",
                                 u"Hard Rock",
                                 u"Folk",
                                 u"Folk Rock",
                                 u"National Folk",
                                 u"Swing",
                                 u"Fast Fusion",
                                 u"Bebob",
                                 u"Latin",
                                 u"Revival",
                                 u"Celtic",
                                 u"Bluegrass",
                                 u"Avantgarde",
                                 u"Gothic Rock",
                                 u"Progressive Rock",
                                 u"Psychedelic Rock",
                                 u"Symphonic Rock",
                                 u"Slow Rock",
                                 u"Big Band",
                                 u"Chorus",
                                 u"Easy Listening",
                                 u"Acoustic",
                                 u"Humour",
                                 u"Speech",
                                 u"Chanson",
                                 u"Opera",
                                 u"Chamber Music",
                                 u"Sonata",
                                 u"Symphony",
                                 u"Booty Bass",
                                 u"Primus",
                                 u"Porn Groove",
                                 u"Satire",
                                 u"Slow Jam",
                                 u"Club",
                                 u"Tango",
                                 u"Samba",
                                 u"Folklore",
                                 u"Ballad",
                                 u"Power Ballad",
                                 u"Rhytmic Soul",
                                 u"Freestyle",
                                 u"Duet",
                                 u"Punk Rock",
                                 u"Drum Solo",
                                 u"Acapella",
                                 u"Euro House",
                                 u"Dance Hall",
                                 u"Goa",
                                 u"Drum n Bass",
                                 u"Club House",
                                 u"Hardcore",
                                 u"Terror",
                                 u"Indie",
                                 u"Brit Pop",
                                 u"Negerpunk",
                                 u"Polsk Punk",
                                 u"Beat",
                                 u"Christian Gangsta Rap",
                                 u"Heavy Metal",
                                 u"Black Metal",
                                 u"Crossover",
                                 u"Contemporary Christian",
                                 u"Christian Rock",
                                 u"Merengue",
                                 u"Salsa",
                                 u"Trash Metal",
                                 u"Anime",
                                 u"JPop",
                                 u"SynthPop"};

TEST(GenreTableTest, EachNumberUpTo147HasItsOwnName) {
  ASSERT_EQ(std::size(kNames), 148u);
  for (std::size_t number = 0; number < std::size(kNames); ++number) {
    SCOPED_TRACE(number);
    EXPECT_TEXT(GenreName(static_cast<std::uint8_t>(number)), kNames[number]);
  }
}

TEST(GenreTableTest, TheNumbersFrom148To254AreUnknown) {
  for (int number = 148; number <= 254; ++number) {
    SCOPED_TRACE(number);
    EXPECT_TEXT(GenreName(static_cast<std::uint8_t>(number)), u"Unknown Genre");
  }
}

TEST(GenreTableTest, TheLastNumberIsNoGenre) {
  EXPECT_TEXT(GenreName(255), u"No Genre");
}

TEST(GenreTableTest, ThereAre150DistinctNames) {
  std::set<StringView> names;
  for (int number = 0; number <= 255; ++number) {
    names.insert(GenreName(static_cast<std::uint8_t>(number)));
  }
  EXPECT_EQ(names.size(), 150u);
}

using GenreStringTest = LibraryTest;

TEST_F(GenreStringTest, AReaderThatHasReadNothingSaysBlues) {
  EXPECT_TEXT(Mp3TagReader(component).GenreString(), u"Blues");
}

TEST_F(GenreStringTest, EveryGenreByteOfATrailerHasItsName) {
  Mp3TagReader reader(component);
  for (int number = 0; number <= 255; ++number) {
    SCOPED_TRACE(number);
    const auto byte = static_cast<std::uint8_t>(number);
    Trailer trailer;
    trailer.genre = byte;
    platform->AddFile(u"C:\\a.mp3", trailer.Bytes());
    EXPECT_TRUE(reader.ReadFile(u"C:\\a.mp3"));
    EXPECT_EQ(reader.Genre(), byte);
    EXPECT_TEXT(reader.GenreString(), GenreName(byte));
  }
}

}  // namespace
}  // namespace norvo

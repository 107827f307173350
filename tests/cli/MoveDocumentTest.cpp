#include "cli/MoveDocument.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/MadeMove.h"

namespace norvo::cli {
namespace {

TEST(MoveDocument, APlaylistTellsOfEachOfItsItems) {
  const Json document = MoveDocument(EventfulMove().result, {});
  const Json expected = Json::parse(R"([
    {"outcome": "song", "entry": 1, "song": 0, "source": "C:\\Music\\One.mp3",
     "foundElsewhere": false},
    {"outcome": "song", "entry": 2, "song": 2, "source": "C:\\Music\\Lost.mp3",
     "foundElsewhere": false},
    {"outcome": "leftOut", "reference": "D:\\gone.mp3", "reason": "no such file",
     "reasonCode": "noSuchFile"},
    {"outcome": "leftOut", "reference": "Song.mp3",
     "reason": "not where the list says, and several files have that name",
     "reasonCode": "ambiguous", "candidates": ["C:\\A\\Song.mp3", "C:\\B\\Song.mp3"],
     "candidateCount": 2},
    {"outcome": "address", "entry": 5, "reference": "http://radio.example.com/"}])");
  EXPECT_EQ(document.at("playlists")[1].at("items"), expected);
  EXPECT_EQ(document.at("playlists")[1].at("missing"), 3);
  EXPECT_EQ(document.at("playlists")[2].at("items")[0].at("foundElsewhere"), true);
}

TEST(MoveDocument, WhatWasNotMovedTellsWhyByACode) {
  const Json document = MoveDocument(EventfulMove().result, {});
  EXPECT_EQ(document.at("playlists")[3].at("reasonCode"), "kindNotRead");
  EXPECT_EQ(document.at("playlists")[4].at("outcome"), "skipped");
  EXPECT_EQ(document.at("playlists")[4].at("reasonCode"), "recycleBin");
  EXPECT_EQ(document.at("media")[2].at("reasonCode"), "sourceUnreadable");
  EXPECT_EQ(document.at("warnings")[0].at("reasonCode"), "nativeGone");
  EXPECT_EQ(document.at("warnings")[0].at("machine"), "new");
  EXPECT_FALSE(document.at("playlists")[0].contains("reason"));
  EXPECT_FALSE(document.at("media")[0].contains("reasonCode"));
}

TEST(MoveDocument, TheWholeCensusIsThere) {
  const Json document = MoveDocument(EventfulMove().result, {});
  EXPECT_EQ(document.at("playlists")[6].at("name"), "Rock");
  EXPECT_EQ(document.at("unlisted"), Json::parse(R"([
    {"source": "C:\\Music\\Alone.mp3", "bytes": 4000000},
    {"source": "C:\\Music\\Alone too.mp3", "bytes": 5000000}])"));
  EXPECT_EQ(document.at("count"), Json::parse(R"(
    {"playlists": 4, "wholePlaylists": 3, "songs": 9, "rightSongs": 8})"));
  const Json& summary = document.at("summary");
  EXPECT_EQ(summary.at("skipped"), 1);
  EXPECT_EQ(summary.at("inPart"), 1);
  EXPECT_EQ(summary.at("foundElsewhere"), 1);
  EXPECT_EQ(summary.at("unlisted"), Json::parse(R"({"songs": 2, "bytes": 9000000})"));
  EXPECT_EQ(summary.at("songsLeftOut"), Json::parse(R"({"songs": 1, "bytes": 8100000})"));
}

}  // namespace
}  // namespace norvo::cli

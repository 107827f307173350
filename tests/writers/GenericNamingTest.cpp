#include "writers/GenericNaming.h"

#include "model/ModelTest.h"

namespace norvo {
namespace {

struct FileNameRow {
  StringView name, file;
};

constexpr FileNameRow kFileNames[] = {{u"Mix.m3u", u"Mix.ini"},
                                      {u"a.b.m3u", u"a.b.ini"},
                                      {u"list", u"list.ini"},
                                      {u"list.", u"list.ini"},
                                      {u"", u".ini"},
                                      {u".", u".ini"},
                                      {u"..", u"..ini"},
                                      {u".m3u", u".ini"},
                                      {u"a.b", u"a.ini"},
                                      {u"a.c", u"a.ini"},
                                      {u"MIX.M3U", u"MIX.ini"},
                                      {u"Mix.ini", u"Mix.ini"},
                                      {u" x . y ", u" x .ini"},
                                      {u"C:\\Out.dir\\Mix", u"C:\\Out.ini"},
                                      {u"C:\\Out\\Mix.pls", u"C:\\Out\\Mix.ini"}};

TEST(GenericNamingTest, WhatFollowsTheLastPointBecomesIni) {
  for (const FileNameRow& row : kFileNames) {
    SCOPED_TRACE(Utf8(row.name));
    EXPECT_TEXT(PlayListToIni(row.name), row.file);
  }
}

using GenericNamingMemberTest = LibraryTest;

TEST_F(GenericNamingMemberTest, TheMemberOfTheControllerFollowsTheSameRule) {
  const ObjectRef controller = component.Create(u"helperMan");
  platform->Log().Clear();
  for (const FileNameRow& row : kFileNames) {
    SCOPED_TRACE(Utf8(row.name));
    std::vector<Variant> arguments{String(row.name)};
    EXPECT_TEXT(ToText(controller->Call(u"PlayListToIni", arguments)), row.file);
    EXPECT_TEXT(ToText(arguments[0]), row.name);
  }
  EXPECT_TRUE(platform->Trace().empty());
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace norvo

#include "services/SettingsLines.h"

#include <gtest/gtest.h>

#include "automation/RunTimeError.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

String Told(StringView text) {
  String told;
  SettingsLines lines(text);
  for (SettingsLine line; lines.Next(line);) {
    const bool isSection = line.kind == SettingsLine::Kind::Section;
    const bool isKey = line.kind == SettingsLine::Kind::Key;
    told += isSection ? u"<" : isKey ? u"{" : u"(";
    told.append(line.name).append(1, u'|').append(line.value);
    told += isSection ? u">" : isKey ? u"}" : u")";
  }
  return told;
}

TEST(SettingsLinesTest, EachLineIsASectionAKeyOrAnotherLine) {
  EXPECT_TEXT(Told(u"[ a ]\r\n b = c \n;d=e\r=f\r\n\r\n[g"), u"<a|>{b|c}(|;d=e)(|=f)(|)(|[g)");
  EXPECT_TEXT(Told(u""), u"");
  EXPECT_TEXT(Told(u"\n"), u"(|)");
  EXPECT_TEXT(Told(u"a=b=c\r\n"), u"{a|b=c}");
  EXPECT_TEXT(Told(u"[a]b]c"), u"<a]b|>");
}

TEST(SettingsLinesTest, ASettingIsFoundInItsSectionOnly) {
  EXPECT_TRUE(HasSetting(u"[A]\r\nx=1\r\n[b]\r\n[a]\r\nKey=2", u"a", u"KEY"));
  EXPECT_TRUE(HasSetting(u"[a]\r\nkey=", u"a", u"key"));
  EXPECT_FALSE(HasSetting(u"key=1\r\n[a]\r\n;key=1\r\nkeys=1\r\n[b]\r\nkey=1", u"a", u"key"));
  EXPECT_FALSE(HasSetting(u"[a]\r\nkey", u"a", u"key"));
}

/// Empty when the text is taken.
String Refusal(StringView text) {
  try {
    CheckSettings(text);
    return {};
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), error::kOutOfMemory);
    return failure.Description();
  }
}

String Repeated(std::size_t count, StringView text) {
  String repeated;
  for (std::size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

TEST(SettingsLinesTest, SoManyCharactersLinesAndSectionsAreTakenAndNoMore) {
  String text(kMostSettingsUnits, u'x');
  EXPECT_TEXT(Refusal(text), u"");
  EXPECT_TEXT(Refusal(text + u"x"), u"it has more than 33554432 characters");
  text = Repeated(kMostSettingsLines, u"\r\n");
  EXPECT_TEXT(Refusal(text), u"");
  EXPECT_TEXT(Refusal(text + u"x"), u"it has more than 2000000 lines");
  text = Repeated(kMostSettingsSections, u"[a]\n") + u"a=[\n";
  EXPECT_TEXT(Refusal(text), u"");
  EXPECT_TEXT(Refusal(text + u"[b]"), u"it has more than 200000 sections");
}

}  // namespace
}  // namespace norvo

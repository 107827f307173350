#include "services/IniDocument.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "support/TextPrinting.h"
#include "text/Number.h"

namespace norvo {
namespace {

/// Value of a key, or "<none>" without the section or the key.
String ValueOf(const IniDocument& document, StringView section, StringView key) {
  const std::size_t position = document.FindSection(section);
  if (position == IniDocument::kNone) return u"<none>";
  return String(document.Value(position, key).value_or(u"<none>"));
}

TEST(IniDocument, AnEmptyTextHasNoSections) {
  EXPECT_EQ(IniDocument(u"").FindSection(u""), IniDocument::kNone);
  EXPECT_EQ(IniDocument().FindSection(u"a"), IniDocument::kNone);
  EXPECT_TEXT(IniDocument(u"").ToText(), u"");
}

TEST(IniDocument, NamesOfSectionsAndKeysAreMatchedInAnyCase) {
  const IniDocument document(u"[Größe]\r\nKey=Value\r\n");
  EXPECT_TEXT(ValueOf(document, u"gRÖßE", u"kEY"), u"Value");
  EXPECT_TEXT(ValueOf(document, u" Größe ", u" Key "), u"Value");
  EXPECT_TEXT(ValueOf(document, u"Größe", u"Other"), u"<none>");
  EXPECT_TEXT(ValueOf(document, u"Other", u"Key"), u"<none>");
}

TEST(IniDocument, EveryKindOfLineEndEndsALine) {
  const IniDocument document(u"[s]\ra=1\nb=2\r\nc=3\r\rd=4\n\re=5");
  for (const auto& [key, value] : {std::pair<StringView, StringView>{u"a", u"1"},
                                   {u"b", u"2"},
                                   {u"c", u"3"},
                                   {u"d", u"4"},
                                   {u"e", u"5"}}) {
    EXPECT_TEXT(ValueOf(document, u"s", key), value);
  }
}

TEST(IniDocument, BlanksAroundNamesAndValuesAreNotPartOfThem) {
  const IniDocument document(u"  [ s ]  \r\n \tkey \t= \t a b \t\r\n");
  EXPECT_TEXT(ValueOf(document, u"s", u"key"), u"a b");
}

TEST(IniDocument, QuotesAndFurtherEqualSignsBelongToTheValue) {
  const IniDocument document(u"[s]\r\na=\"x\"\r\nb=1=2\r\nc=\r\n");
  EXPECT_TEXT(ValueOf(document, u"s", u"a"), u"\"x\"");
  EXPECT_TEXT(ValueOf(document, u"s", u"b"), u"1=2");
  EXPECT_TEXT(ValueOf(document, u"s", u"c"), u"");
}

TEST(IniDocument, LinesThatAreNoKeysAreNotFound) {
  const IniDocument document(u"[s]\r\n;a=1\r\n ; b=2\r\n=3\r\nword\r\n[open\r\n");
  for (const StringView key : {u"a", u";a", u"b", u"; b", u"", u"word", u"[open"}) {
    EXPECT_TEXT(ValueOf(document, u"s", key), u"<none>") << Utf8(key);
  }
}

TEST(IniDocument, KeysBeforeTheFirstSectionBelongToNone) {
  const IniDocument document(u"a=1\r\n[s]\r\nb=2\r\n");
  EXPECT_TEXT(ValueOf(document, u"s", u"a"), u"<none>");
  EXPECT_TEXT(ValueOf(document, u"", u"a"), u"<none>");
}

TEST(IniDocument, OfTwoEqualKeysTheFirstHolds) {
  IniDocument document(u"[s]\r\na=1\r\nA=2\r\n");
  EXPECT_TEXT(ValueOf(document, u"s", u"a"), u"1");
  document.SetValue(document.FindSection(u"s"), u"a", u"3");
  EXPECT_TEXT(document.ToText(), u"[s]\r\na=3\r\nA=2\r\n");
}

TEST(IniDocument, TwoEqualSectionsAreOne) {
  IniDocument document(u"[s]\r\na=1\r\n[t]\r\nx=9\r\n[S]\r\na=2\r\nb=3\r\n");
  EXPECT_TEXT(ValueOf(document, u"s", u"a"), u"1");
  EXPECT_TEXT(ValueOf(document, u"s", u"b"), u"3");
  EXPECT_TEXT(document.ToText(), u"[s]\r\na=1\r\na=2\r\nb=3\r\n[t]\r\nx=9\r\n");
}

TEST(IniDocument, OrderCommentsAndBlankLinesAreKept) {
  const StringView text = u"; head\r\n\r\n[z]\r\nb=1\r\n; note\r\na=2\r\n\r\n[a]\r\nword\r\n";
  EXPECT_TEXT(IniDocument(String(text)).ToText(), text);
}

TEST(IniDocument, TheLastLineGetsItsEnd) {
  EXPECT_TEXT(IniDocument(u"[s]\na=1").ToText(), u"[s]\r\na=1\r\n");
}

TEST(IniDocument, NewKeysStandAtTheirSectionsEndAndNewSectionsAtTheFilesEnd) {
  IniDocument document(u"[s]\r\na=1\r\n[t]\r\nb=2\r\n");
  document.SetValue(document.FindOrAddSection(u"S"), u"c", u"3");
  document.SetValue(document.FindOrAddSection(u"new"), u"d", u" 4 ");
  EXPECT_TEXT(document.ToText(), u"[s]\r\na=1\r\nc=3\r\n[t]\r\nb=2\r\n[new]\r\nd=4\r\n");
}

TEST(IniDocument, ALineEndWithinAValueBecomesABlank) {
  IniDocument document;
  const std::size_t section = document.FindOrAddSection(u"s");
  document.SetValue(section, u"a", u"1\r\n2\n3\r4");
  document.SetValue(section, u"b", u"x\r\n[evil]\r\ny=1");
  EXPECT_TEXT(document.ToText(), u"[s]\r\na=1 2 3 4\r\nb=x [evil] y=1\r\n");
}

TEST(IniDocument, ALineEndBehindANewValueLeavesAnEmptyLine) {
  IniDocument document;
  const std::size_t section = document.FindOrAddSection(u"s");
  document.SetValue(section, u"a", u"1\r\n");
  document.SetValue(section, u"b", u"2\n");
  document.SetValue(section, u"c", u"3");
  EXPECT_TEXT(document.ToText(), u"[s]\r\na=1\r\n\r\nb=2\r\n\r\nc=3\r\n");
  EXPECT_TEXT(ValueOf(document, u"s", u"a"), u"1");
}

TEST(IniDocument, ManyShortKeysAreAllFoundAgain) {
  IniDocument document;
  const std::size_t section = document.FindOrAddSection(u"s");
  for (int i = 0; i < 500; ++i) {
    document.SetValue(section, u"k" + FormatInteger(i), FormatInteger(i));
    ASSERT_TEXT(ValueOf(document, u"s", u"K0"), u"0") << "after " << i << " keys";
  }
  for (int i = 0; i < 500; ++i) {
    ASSERT_TEXT(ValueOf(document, u"S", u"K" + FormatInteger(i)), FormatInteger(i));
  }
  EXPECT_TEXT(ValueOf(document, u"s", u"k500"), u"<none>");
  EXPECT_TEXT(IniDocument(document.ToText()).ToText(), document.ToText());
}

TEST(IniDocument, OfTwoEqualKeysAmongManyTheFirstHolds) {
  String text = u"[s]\r\n";
  for (int i = 0; i < 100; ++i) text += u"k" + FormatInteger(i) + u"=first\r\n";
  for (int i = 0; i < 100; ++i) text += u"K" + FormatInteger(i) + u"=second\r\n";
  const IniDocument document(text);
  for (int i = 0; i < 100; ++i) {
    ASSERT_TEXT(ValueOf(document, u"s", u"k" + FormatInteger(i)), u"first");
  }
}

TEST(IniDocument, TheKeysOfASectionComeInTheirOrderEqualOnesIncluded) {
  IniDocument document(u"x=0\r\n[s]\r\nb=1\r\n; c=2\r\n A = 3\r\n[t]\r\nd=4\r\n[S]\r\nB=5\r\n");
  document.SetValue(document.FindSection(u"s"), u"e", u"6");
  String keys;
  for (const StringView key : document.Keys(document.FindSection(u"s"))) keys.append(key) += u'|';
  EXPECT_TEXT(keys, u"b|A|B|e|");
}

// A quadratic cost would run into the time limit of the tests.
TEST(IniDocument, AddingManyKeysEndsInTime) {
  IniDocument document;
  const std::size_t section = document.FindOrAddSection(u"s");
  for (int i = 0; i < 100000; ++i) {
    document.SetValue(section, u"a rather long key " + FormatInteger(i), u"x");
  }
  EXPECT_TEXT(ValueOf(document, u"s", u"a rather long key 99999"), u"x");
}

TEST(IniDocument, AnyTextIsStableOnceWritten) {
  constexpr StringView kUnits = u"ab= ;[]\r\n\t\"";
  std::mt19937 random(20030514);
  for (int i = 0; i < 20000; ++i) {
    String text(random() % 40, u' ');
    for (char16_t& unit : text) unit = kUnits[random() % kUnits.size()];
    const String once = IniDocument(text).ToText();
    ASSERT_TEXT(IniDocument(once).ToText(), once) << "from " << Utf8(text);
  }
}

TEST(IniDocument, ACopyIsADocumentOfItsOwn) {
  String many = u"; top\r\n[A]\r\nx=1\r\n[Many]\r\n";
  for (int i = 0; i < 100; ++i) many += u"k" + FormatInteger(i) + u"=" + FormatInteger(i) + u"\r\n";
  auto original = std::make_unique<IniDocument>(many);
  ASSERT_TEXT(ValueOf(*original, u"many", u"K99"), u"99");  // its keys are indexed now
  IniDocument copy(*original);
  EXPECT_TEXT(copy.ToText(), many);
  original->SetValue(original->FindSection(u"A"), u"x", u"2");
  copy.SetValue(copy.FindSection(u"many"), u"K99", u"other");
  copy.SetValue(copy.FindOrAddSection(u"B"), u"y", u"3");
  EXPECT_TEXT(ValueOf(*original, u"A", u"x"), u"2");
  EXPECT_TEXT(ValueOf(*original, u"Many", u"k99"), u"99");
  EXPECT_EQ(original->FindSection(u"B"), IniDocument::kNone);
  original.reset();
  EXPECT_TEXT(ValueOf(copy, u"A", u"x"), u"1");
  EXPECT_TEXT(ValueOf(copy, u"Many", u"k99"), u"other");
  EXPECT_TEXT(ValueOf(copy, u"Many", u"k0"), u"0");
  EXPECT_TEXT(ValueOf(copy, u"b", u"y"), u"3");
}

TEST(IniDocument, AnAssignedDocumentReplacesTheOneBefore) {
  IniDocument target(u"[Old]\r\na=1\r\n");
  {
    const IniDocument source(u"[New]\r\na=2\r\n[Other]\r\nb=3\r\n");
    target = source;
    EXPECT_TEXT(source.ToText(), u"[New]\r\na=2\r\n[Other]\r\nb=3\r\n");
  }
  EXPECT_EQ(target.FindSection(u"Old"), IniDocument::kNone);
  EXPECT_TEXT(ValueOf(target, u"new", u"a"), u"2");
  EXPECT_TEXT(ValueOf(target, u"other", u"b"), u"3");
  const IniDocument& itself = target;
  target = itself;
  EXPECT_TEXT(ValueOf(target, u"other", u"b"), u"3");
}

TEST(IniDocument, NulsAndHugeLinesAreOrdinaryText) {
  const String huge(300000, u'x');
  const IniDocument document(u"[s]\r\na=" + huge + u"\r\nb=1" + String(1, u'\0') + u"2\r\n");
  EXPECT_EQ(ValueOf(document, u"s", u"a").size(), 300000u);
  EXPECT_EQ(ValueOf(document, u"s", u"b"), String(u"1\0"
                                                  u"2",
                                                  3));
}

}  // namespace
}  // namespace norvo

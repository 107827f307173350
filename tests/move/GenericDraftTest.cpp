#include "move/GenericDraft.h"

#include <gtest/gtest.h>

#include <utility>

#include "model/GenericSections.h"
#include "services/IniDocument.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// Texts with whatever a settings file may hold, ordinary and not.
constexpr StringView kTexts[] = {
    u"",
    u"[Global Properties]\r\nTotalSongs=1\r\n\r\n[Entry 1 Properties]\r\nArtist=Ann\r\n",
    u"; before\r\n[A]\r\nx=1\rx=2\n\n  y \t= two words \n=none\n;z=3\nno key\n[B]\n[a]\nlast=4",
    u"[Entry 2 Properties]\nk=2\n[Entry 1 Properties]\nk=1\n[entry 2 properties]\nk=3\nl=4\n",
    u"[Entry 01 Properties]\nk=1\n[Entry 1 Properties]\nk=2\n[Entry 0 Properties]\n[Entry  "
    u"Properties]",
    u"[ spaced ]\nkey=[v]\n[half\n]x=1\n [b] tail\nq=\n",
};

class GenericDraftTest : public testing::TestWithParam<StringView> {
 protected:
  SectionPool pool_;
  GenericDraft draft_{GetParam(), pool_};
  IniDocument document_{String(GetParam())};
};

TEST_P(GenericDraftTest, HasTheTextOfTheDocument) {
  EXPECT_TEXT(draft_.ToText(), document_.ToText());
}

TEST_P(GenericDraftTest, FindsWhatTheDocumentFinds) {
  for (const StringView section :
       {u"A", u"a", u"B", u"spaced", u"Entry 1 Properties", u"ENTRY 2 PROPERTIES",
        u"Entry 01 Properties", u"Entry 0 Properties", u"Global Properties", u"gone"}) {
    const std::size_t found = draft_.FindSection(section);
    const std::size_t wanted = document_.FindSection(section);
    ASSERT_EQ(found, wanted);
    if (found == GenericDraft::kNone) continue;
    for (const StringView key : {u"x", u"Y", u"k", u"l", u"key", u"q", u"Artist", u"none", u"z"}) {
      EXPECT_EQ(draft_.Value(found, key), document_.Value(wanted, key));
    }
  }
}

TEST_P(GenericDraftTest, ChangesAsTheDocumentDoes) {
  for (const StringView section : {u"A", u"Entry 1 Properties", u"Entry 2 Properties", u"new"}) {
    const std::size_t here = draft_.FindOrAddSection(section);
    const std::size_t there = document_.FindOrAddSection(section);
    constexpr std::pair<StringView, StringView> kChanges[] = {
        {u"X", u"other"}, {u"k", u""}, {u"n", u" two\r\nlines "}};
    for (const auto& [key, value] : kChanges) {
      draft_.SetValue(here, key, value);
      document_.SetValue(there, key, value);
    }
  }
  EXPECT_TEXT(draft_.ToText(), document_.ToText());
}

INSTANTIATE_TEST_SUITE_P(AnyText, GenericDraftTest, testing::ValuesIn(kTexts));

TEST(GenericDraft, KeepsEqualSectionsOfAllFilesOnce) {
  SectionPool pool;
  const GenericDraft one(u"[Entry 1 Properties]\nArtist=Ann\nAlbum=Sun\n", pool);
  const GenericDraft other(
      u"[Entry 1 Properties]\nArtist=Bob\n[Entry 2 Properties]\nArtist=Ann\nAlbum=Sun\n", pool);
  EXPECT_EQ(one.ContentOf(one.FindEntry(1)), other.ContentOf(other.FindEntry(2)));
  EXPECT_NE(one.ContentOf(one.FindEntry(1)), other.ContentOf(other.FindEntry(1)));
}

TEST(GenericDraft, TakesItsSectionsAlongIntoAnotherPool) {
  SectionPool pool;
  const StringView text =
      u"; before\r\n[Global Properties]\r\nTotalSongs=1\r\n[Entry 1 Properties]\r\nArtist=Ann\r\n";
  const GenericDraft other(u"[Entry 1 Properties]\nArtist=Bob\n[B]\nk=1\n", pool);
  GenericDraft draft(text, pool);
  draft.SetValue(draft.FindEntry(1), u"Artist", u"Eve");
  const String before = draft.ToText();
  const SectionPool::Id first = pool.Emptied().Add(pool.Lines(other.ContentOf(0)));

  SectionPool live = pool.Emptied();
  draft.MoveTo(live);
  GenericDraft().MoveTo(live);
  pool = std::move(live);
  EXPECT_TEXT(draft.ToText(), before);
  EXPECT_TEXT(*draft.Value(draft.FindEntry(1), u"Artist"), u"Eve");
  // A preamble and two sections are all that is in the new one.
  const SectionPool::Line line{pool.Texts().Add(u"new"), pool.Texts().Add(u"1")};
  EXPECT_EQ(pool.Add({&line, 1}), first + 3);
}

TEST(GenericDraft, CountsEntriesUpToTheFirstThatIsNotThere) {
  SectionPool pool;
  EXPECT_EQ(GenericDraft(u"[Entry 2 Properties]\n[Entry 1 Properties]\n[Entry 4 Properties]", pool)
                .CountEntries(),
            2U);
}

TEST(GenericDraft, KeepsManyTextsApart) {
  SectionPool pool;
  String text;
  for (int i = 1; i <= 3000; ++i)
    text += EntrySection(i) + u"=" + String(static_cast<std::size_t>(i % 40), u'x') + u"\n";
  const GenericDraft draft(u"[All]\n" + text, pool);
  EXPECT_TEXT(draft.ToText(), IniDocument(u"[All]\n" + text).ToText());
}

}  // namespace
}  // namespace norvo

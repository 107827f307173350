#include "automation/RunTimeError.h"

#include <gtest/gtest.h>

#include "support/RaisedErrors.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct DescriptionRow {
  std::int32_t number;
  StringView description;
};

constexpr DescriptionRow kDescriptions[] = {
    {5, u"Invalid procedure call or argument"},
    {6, u"Overflow"},
    {7, u"Out of memory"},
    {9, u"Subscript out of range"},
    {13, u"Type mismatch"},
    {53, u"File not found"},
    {57, u"Device I/O error"},
    {61, u"Disk full"},
    {62, u"Input past end of file"},
    {70, u"Permission denied"},
    {75, u"Path/File access error"},
    {76, u"Path not found"},
    {91, u"Object variable or With block variable not set"},
    {93, u"Invalid pattern string"},
    {429, u"ActiveX component can't create object"},
    {438, u"Object doesn't support this property or method"},
    {450, u"Wrong number of arguments or invalid property assignment"},
    {12345, u"Application-defined or object-defined error"},
};

TEST(RunTimeError, EachNumberHasItsStandardDescription) {
  for (const DescriptionRow& row : kDescriptions) {
    EXPECT_TEXT(DescriptionOf(row.number), row.description);
    const RunTimeError failure(row.number);
    EXPECT_EQ(failure.Number(), row.number);
    EXPECT_TEXT(failure.Description(), row.description);
  }
}

TEST(RunTimeError, AnOwnDescriptionIsKeptAndShownInUtf8) {
  const RunTimeError failure(53, u"Datei „ä“ fehlt");
  EXPECT_EQ(failure.Number(), 53);
  EXPECT_TEXT(failure.Description(), u"Datei „ä“ fehlt");
  EXPECT_STREQ(failure.what(), "Datei \xE2\x80\x9E\xC3\xA4\xE2\x80\x9C fehlt");
}

template <class Work>
std::int32_t NumberBehindGuard(Work work) {
  return NumberRaisedBy([&] { Guarded(work); });
}

TEST(RunTimeError, GuardedWorkGivesItsResult) {
  EXPECT_EQ(Guarded([] { return 7; }), 7);
  int calls = 0;
  Guarded([&] { ++calls; });
  EXPECT_EQ(calls, 1);
}

TEST(RunTimeError, GuardedTurnsShortageOfMemoryIntoErrorSeven) {
  EXPECT_EQ(NumberBehindGuard([] { throw std::bad_alloc(); }), error::kOutOfMemory);
  EXPECT_EQ(NumberBehindGuard([] { throw std::length_error("too long"); }), error::kOutOfMemory);
}

TEST(RunTimeError, GuardedLetsRunTimeErrorsThroughAsTheyAre) {
  EXPECT_EQ(NumberBehindGuard([] { throw RunTimeError(76); }), 76);
}

}  // namespace
}  // namespace norvo

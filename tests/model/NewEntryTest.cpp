#include "model/NewEntry.h"

#include "model/ModelTest.h"
#include "model/PlaylistTypes.h"

namespace norvo {
namespace {

using NewEntryTest = LibraryTest;

TEST_F(NewEntryTest, AnEntryIsOfTheClassOfItsTypeAndKnowsTheType) {
  const std::pair<std::int32_t, StringView> rows[] = {{1, u"AsxEntry"}, {2, u"AsxEntry"},
                                                      {3, u"M3UEntry"}, {4, u"PlsEntry"},
                                                      {5, u"PlsEntry"}, {6, u"M3UEntry"}};
  ASSERT_EQ(std::size(rows), PlaylistTypes().size());
  for (const auto& [type, name] : rows) {
    const std::shared_ptr<FormatEntry> entry = NewEntry(component, type);
    ASSERT_NE(entry, nullptr) << type;
    EXPECT_TEXT(entry->ClassName(), name);
    EXPECT_EQ(entry->EntryType(), type);
  }
}

TEST_F(NewEntryTest, AnUnknownTypeHasNoEntries) {
  for (const std::int32_t type : {0, -1, 32767}) EXPECT_EQ(NewEntry(component, type), nullptr);
}

}  // namespace
}  // namespace norvo

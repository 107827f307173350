#include "text/PositionTable.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

/// Numbers in a row, and their table; the hash of a number is its remainder.
class Row {
 public:
  explicit Row(std::uint64_t remainders) : remainders_(remainders) {}

  void Add(std::uint64_t number) {
    table.Reserve(numbers_.size() + 1, [this](std::size_t at) { return HashOf(numbers_[at]); });
    numbers_.push_back(number);
    table.Add(numbers_.size() - 1, HashOf(number));
  }
  std::optional<std::size_t> Find(std::uint64_t number) const {
    return table.Find(HashOf(number), [&](std::size_t at) { return numbers_[at] == number; });
  }

  PositionTable table;

 private:
  std::uint64_t HashOf(std::uint64_t number) const { return number % remainders_; }

  std::uint64_t remainders_;
  std::vector<std::uint64_t> numbers_;
};

TEST(PositionTable, FindsEachThingWhereverItStands) {
  // With hashes that all differ, that are shared by many, and that are all one.
  for (const std::uint64_t remainders : {1'000'003u, 17u, 1u}) {
    SCOPED_TRACE(remainders);
    Row row(remainders);
    EXPECT_FALSE(row.Find(0));
    for (std::uint64_t number = 0; number < 500; ++number) row.Add(number * 7);
    EXPECT_EQ(row.table.Size(), 500u);
    for (std::uint64_t number = 0; number < 500; ++number) ASSERT_EQ(row.Find(number * 7), number);
    EXPECT_FALSE(row.Find(1));
    EXPECT_FALSE(row.Find(3500));
  }
}

TEST(PositionTable, FindsNothingAfterClearing) {
  Row row(17);
  row.Add(3);
  row.table.Clear();
  EXPECT_EQ(row.table.Size(), 0u);
  EXPECT_FALSE(row.Find(3));
}

TEST(PositionTable, RefusesMorePositionsThanItCanHold) {
  PositionTable table;
  const auto hashOf = [](std::size_t) { return std::uint64_t{0}; };
  EXPECT_THROW(table.Reserve(UINT32_MAX, hashOf), std::length_error);
  EXPECT_EQ(table.Size(), 0u);
}

}  // namespace
}  // namespace norvo

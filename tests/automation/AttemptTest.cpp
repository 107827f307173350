#include "automation/Attempt.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(Attempt, TheAnswerOfSoundWorkIsItsOwn) {
  EXPECT_EQ(AnswerOr(1, [] { return 7; }), 7);
  EXPECT_EQ(AnswerOrElse([] { return 7; }, [](const RunTimeError&) { return 1; }), 7);
  EXPECT_TRUE(Attempt([] {}));
}

TEST(Attempt, AnErrorGivesTheNeutralAnswer) {
  EXPECT_TEXT(AnswerOr(String(u"none"), []() -> String { throw RunTimeError(13); }), u"none");
  EXPECT_FALSE(Attempt([] { throw RunTimeError(13); }));
}

TEST(Attempt, AnAnswerNeedNotBeCopied) {
  const auto kept = AnswerOr(std::unique_ptr<int>(), [] { return std::make_unique<int>(7); });
  EXPECT_EQ(*kept, 7);
  const auto neutral =
      AnswerOr(std::make_unique<int>(1), []() -> std::unique_ptr<int> { throw RunTimeError(13); });
  EXPECT_EQ(*neutral, 1);
}

TEST(Attempt, TheHandlerIsToldTheErrorAndAnswers) {
  const auto failing = []() -> int { throw RunTimeError(13); };
  EXPECT_EQ(AnswerOrElse(failing, [](const RunTimeError& failure) { return failure.Number(); }),
            13);
  std::int32_t told = 0;
  AnswerOrElse([] { throw RunTimeError(6); },
               [&told](const RunTimeError& failure) { told = failure.Number(); });
  EXPECT_EQ(told, 6);
}

TEST(Attempt, WhatTheStandardLibraryThrowsIsAnErrorToo) {
  EXPECT_FALSE(Attempt([] { throw std::bad_alloc(); }));
  EXPECT_EQ(AnswerOr(1, []() -> int { throw std::out_of_range(""); }), 1);
  EXPECT_EQ(AnswerOrElse([]() -> int { throw std::runtime_error(""); },
                         [](const RunTimeError& failure) { return failure.Number(); }),
            error::kInvalidArgument);
}

TEST(Attempt, WhatWasDoneBeforeTheErrorStays) {
  int done = 0;
  EXPECT_FALSE(Attempt([&done] {
    done = 1;
    throw RunTimeError(5);
  }));
  EXPECT_EQ(done, 1);
}

}  // namespace
}  // namespace norvo

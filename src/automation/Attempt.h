#pragma once

#include <type_traits>
#include <utility>

#include "automation/RunTimeError.h"

namespace norvo {

/// The edges of operations that never raise. All run their work as `Guarded` does, so that whatever
/// the standard library throws is an error too.

/// The answer of `work`; an error is handed to `handle`, whose answer it then is. Both may give
/// nothing.
template <class Work, class Handle>
std::invoke_result_t<Work&> AnswerOrElse(Work&& work, Handle&& handle) {
  try {
    return Guarded(work);
  } catch (const RunTimeError& failure) {
    return handle(failure);
  }
}

/// The answer of `work`; an error gives `neutral`, without a word.
template <class Answer, class Work>
Answer AnswerOr(Answer neutral, Work&& work) {
  return AnswerOrElse([&work]() -> Answer { return work(); },
                      [&neutral](const RunTimeError&) { return std::move(neutral); });
}

/// Runs `work`; false, without a word, when an error ends it. What it did until then stays.
template <class Work>
bool Attempt(Work&& work) {
  return AnswerOr(false, [&work] {
    work();
    return true;
  });
}

}  // namespace norvo

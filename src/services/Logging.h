#pragma once

#include "automation/Attempt.h"
#include "services/Component.h"
#include "services/Warning.h"
#include "text/Text.h"

namespace norvo {

/// Takes a finished message and, by the debug switch, drops it, shows it or appends it as one line
/// to "VBLog.txt" in the product folder. Never raises: a message that cannot be written is lost.
void WriteLog(Component& component, StringView message);

/// Tells of work that was not done: its text is a line of the log, and the observer is told what it
/// means. Never raises.
void WriteWarning(Component& component, const Warning& warning);

/// A warning that lacks its reason, with which its line ends.
struct WarningStart {
  WarningKind kind;
  StringView path;
  StringView text;  ///< the line up to the reason
};

void WriteWarning(Component& component, const WarningStart& start, StringView reason);

/// The answer of `work`; an error is told as a warning and answered with `neutral`.
template <class Answer, class Work>
Answer AnswerOrWarn(Component& component, const WarningStart& start, Answer neutral, Work&& work) {
  return AnswerOrElse([&work]() -> Answer { return work(); },
                      [&](const RunTimeError& failure) {
                        WriteWarning(component, start, failure.Description());
                        return std::move(neutral);
                      });
}

/// Runs `work`; false, with a warning, when an error ends it.
template <class Work>
bool AttemptOrWarn(Component& component, const WarningStart& start, Work&& work) {
  return AnswerOrWarn(component, start, false, [&work] {
    work();
    return true;
  });
}

}  // namespace norvo

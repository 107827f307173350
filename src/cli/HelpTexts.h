#pragma once

namespace norvo {

/// What the help says differently on the systems that the program runs on.
struct HelpTexts {
  const char* about;       ///< what the program is for
  const char* showPath;    ///< what PATH of `show` is
  const char* verifyPath;  ///< what PATH of `verify` is
  // What stands below the options of the program and of each command.
  const char* program;
  const char* init;
  const char* scan;
  const char* collect;
  const char* show;
  const char* restore;
  const char* verify;
};

/// Those of this system.
extern const HelpTexts kHelp;

}  // namespace norvo

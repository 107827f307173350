#include <windows.h>

#include <shellapi.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/Program.h"
#include "cli/windows/ConsoleMode.h"
#include "platform/windows/WideText.h"
#include "text/Encoding.h"

namespace {

/// The command line in UTF-8, without the program's name. `main` would get it in the 8-bit code
/// page, with its wildcards replaced.
std::vector<std::string> Words() {
  struct Free {
    void operator()(wchar_t** words) const { ::LocalFree(words); }
  };
  int count = 0;
  const std::unique_ptr<wchar_t*, Free> words(::CommandLineToArgvW(::GetCommandLineW(), &count));
  std::vector<std::string> result;
  for (int i = 1; words && i < count; ++i) {
    result.push_back(norvo::ToUtf8(norvo::FromWide(words.get()[i])));
  }
  return result;
}

}  // namespace

int main() {
  std::ios::sync_with_stdio(false);  // which gives the streams buffers anew
  const norvo::cli::ConsoleMode console;
  return norvo::cli::Run(Words(), std::cout, std::cerr, console.CanDraw());
}

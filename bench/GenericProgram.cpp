// Reads one generic file and writes its playlist in all native syntaxes, and prints how many
// entries it has, and the seconds for the one and the other. Usage: generic_program MACHINE-FOLDER
// FILE
#include <chrono>
#include <exception>
#include <iostream>

#include "automation/Conversions.h"
#include "library/Library.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo::bench {
namespace {

double SecondsOf(AutomationObject& playlist, const char* member, Arguments arguments) {
  const auto begin = std::chrono::steady_clock::now();
  playlist.Call(member, arguments);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void Run(const char* machine, const std::string& path) {
  const auto library = OpenLibrary(std::make_shared<HostedPlatform>(machine));
  const ObjectRef playlist = library->Create("PlayList");
  Variant file = FromUtf8Lossy(path);
  const double read = SecondsOf(*playlist, "ReadGeneric", Arguments(&file, 1));
  const double written = SecondsOf(*playlist, "WriteRawPlayList", {});
  std::cout << ToInt32(playlist->Get("TotalSongs")) << ' ' << read << ' ' << written << '\n';
}

}  // namespace
}  // namespace norvo::bench

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: generic_program MACHINE-FOLDER FILE\n";
    return 2;
  }
  try {
    norvo::bench::Run(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "generic_program: " << failure.what() << '\n';
    return 2;
  }
}

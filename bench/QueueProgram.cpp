// Runs the queue over the playlists that a machine's list file names: the work that is compared
// with floor_collect. Usage: queue_program MACHINE-FOLDER
#include <filesystem>
#include <iostream>
#include <memory>

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "library/Library.h"
#include "platform/hosted/HostedPlatform.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: queue_program MACHINE-FOLDER\n";
    return 2;
  }
  try {
    const auto platform = std::make_shared<norvo::HostedPlatform>(std::filesystem::path(argv[1]));
    const auto component = norvo::OpenLibrary(platform);
    norvo::Variant mode = std::int32_t{0};
    const norvo::Variant result =
        component->Create(u"helperMan")->Call(u"GenericQueue", norvo::Arguments(&mode, 1));
    return norvo::ToBoolean(result) ? 0 : 1;
  } catch (const norvo::RunTimeError& failure) {
    std::cerr << "queue_program: " << failure.what() << '\n';
    return 2;
  }
}

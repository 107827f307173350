#include "machines/TempFolder.h"

#include <stdlib.h>

#include <string>
#include <system_error>

#include "cli/Console.h"

namespace norvo {

TempFolder::TempFolder() {
  std::error_code failure;
  std::filesystem::path parent = std::filesystem::temp_directory_path(failure);
  if (failure) parent = "/tmp";
  std::string name = (parent / "norvo-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) {
    throw HostError("No folder can be made in " + parent.string() +
                    ". Set TMPDIR to a folder that can be written.");
  }
  path_ = name;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace norvo

#include "PlainFiles.h"

#include <algorithm>
#include <string>

#include "Files.h"

namespace norvo::bench {
namespace {

constexpr std::size_t kFilesPerFolder = 100;
constexpr std::size_t kDigits = 6;

std::string MakeFileName(std::size_t number) {
  std::string digits = std::to_string(number);
  if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), '0');
  return "file " + digits + ".dat";
}

/** Whether a tree of that depth and width has enough deepest folders. */
bool IsWideEnough(std::size_t width, std::size_t depth, std::size_t folders) {
  std::size_t places = 1;
  for (std::size_t level = 0; level < depth && places < folders; ++level) places *= width;
  return places >= folders;
}

std::size_t SmallestWidth(std::size_t depth, std::size_t folders) {
  std::size_t width = 1;
  while (!IsWideEnough(width, depth, folders)) ++width;
  return width;
}

std::filesystem::path MakeFolderPath(std::size_t folder, std::size_t width, std::size_t depth) {
  std::filesystem::path path;
  for (std::size_t level = 0; level < depth; ++level) {
    path = ("folder " + std::to_string(folder % width + 1)) / path;
    folder /= width;
  }
  return path;
}

}  // namespace

void WritePlainFiles(const std::filesystem::path& drive, std::size_t count, std::size_t depth) {
  const std::size_t folders = (count + kFilesPerFolder - 1) / kFilesPerFolder;
  const std::size_t levels = std::max<std::size_t>(depth, 1);
  const std::size_t width = SmallestWidth(levels, folders);
  std::filesystem::path folder;
  for (std::size_t index = 0; index < count; ++index) {
    if (index % kFilesPerFolder == 0) {
      folder = drive / "Data" / MakeFolderPath(index / kFilesPerFolder, width, levels);
      std::filesystem::create_directories(folder);
    }
    WriteFile(folder / MakeFileName(index + 1), "");
  }
}

}  // namespace norvo::bench

#include "platform/files/DiskPath.h"

#include <system_error>

namespace norvo {

std::string JoinDiskPath(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  path.append(folder);
  if (!folder.empty()) path.push_back('/');
  path.append(name);
  return path;
}

std::string_view LeafOf(std::string_view path) {
  const std::size_t last = path.rfind('/');
  return last == std::string_view::npos ? path : path.substr(last + 1);
}

std::string_view ParentOf(std::string_view path) {
  const std::size_t last = path.rfind('/');
  return last == std::string_view::npos ? std::string_view() : path.substr(0, last);
}

bool LiesWithin(std::string_view path, std::string_view folder) {
  if (folder.empty() || path == folder) return true;
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

std::string_view RootOf(std::string_view path) {
  std::size_t end = path.find('/');
  if (path.starts_with("//")) {
    end = path.find('/', 2);
    if (end != std::string_view::npos) end = path.find('/', end + 1);
  }
  return end == std::string_view::npos ? path : path.substr(0, end + 1);
}

// As UTF-8 a path goes through unchanged where the system keeps bytes, whatever they are.
std::filesystem::path ToSystemPath(std::string_view path) {
  return std::u8string(path.begin(), path.end());
}

std::string ToDiskPath(const std::filesystem::path& path) {
  const std::u8string text = path.generic_u8string();
  return std::string(text.begin(), text.end());
}

std::string ShownPath(const std::filesystem::path& path) {
  const std::u8string text = std::filesystem::path(path).make_preferred().u8string();
  return std::string(text.begin(), text.end());
}

std::filesystem::path FullSystemPath(const std::filesystem::path& path) {
  std::error_code failure;
  std::filesystem::path full = std::filesystem::absolute(path, failure);
  return path.empty() || failure ? path : full;
}

}  // namespace norvo

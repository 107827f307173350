#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace norvo {

/// Paths of the disk: UTF-8, with "/" between the names.

/// "folder/name"; just the name for the empty folder.
std::string JoinDiskPath(std::string_view folder, std::string_view name);
/// What follows the last "/".
std::string_view LeafOf(std::string_view path);
/// What precedes the last "/"; empty without one.
std::string_view ParentOf(std::string_view path);

/// True when the path is the folder or lies below it; the empty folder holds all paths.
bool LiesWithin(std::string_view path, std::string_view folder);

/// What names the disk of a path in full: "/", "E:/", or "//server/share/".
std::string_view RootOf(std::string_view path);

/// The same path as the standard library has it, and back, in whatever form the system keeps it.
std::filesystem::path ToSystemPath(std::string_view path);
std::string ToDiskPath(const std::filesystem::path& path);

/// The path as people write it on this system, in UTF-8.
std::string ShownPath(const std::filesystem::path& path);

/// The path in full, which holds when the process changes its own folder; the empty path stays
/// empty.
std::filesystem::path FullSystemPath(const std::filesystem::path& path);

}  // namespace norvo

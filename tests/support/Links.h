#pragma once

#include <gtest/gtest.h>

#include <filesystem>

namespace norvo {

/// True when programs can make links here. Wine makes none that it tells from what they lead to.
bool CanMakeLinks();

/// To be a test's first line when it is about links.
#define NEEDS_LINKS() \
  if (!::norvo::CanMakeLinks()) GTEST_SKIP() << "no links can be made here"

/// A link of that name, which leads to a file, or to nothing.
void MakeFileLink(const std::filesystem::path& target, const std::filesystem::path& name);
/// One that leads to a folder.
void MakeFolderLink(const std::filesystem::path& target, const std::filesystem::path& name);

}  // namespace norvo

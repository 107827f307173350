#pragma once

#include <string>
#include <string_view>

#include "platform/files/SystemCalls.h"

namespace norvo::cli {

/// A file that is written whole or not at all, in place of one of its name that may be there.
class PageFile {
 public:
  /// CommandError when it cannot be written, before anything else is done; so nothing is lost by a
  /// misspelt name after hours of work.
  explicit PageFile(const std::string& path);
  /// Without a `Write` nothing is left.
  ~PageFile();
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;

  /// CommandError when the disk does not take it.
  void Write(std::string_view text);

 private:
  void FailOn(FileFailure failure) const;
  [[noreturn]] void Fail(const std::string& reason) const;

  std::string path_;
  SystemFile folder_;
  std::string name_;   // in the folder
  std::string draft_;  // beside it; empty when there is none
  SystemFile file_;
};

}  // namespace norvo::cli

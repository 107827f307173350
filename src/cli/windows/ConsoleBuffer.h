#pragma once

#include <windows.h>

#include <streambuf>
#include <string>

namespace norvo::cli {

/// Writes UTF-8 to a console as what it shows, in every script. By way of a file the C library and
/// the console's code page would each have a say in that.
class ConsoleBuffer final : public std::streambuf {
 public:
  explicit ConsoleBuffer(HANDLE console) : console_(console) {}
  ~ConsoleBuffer() override;

 protected:
  int_type overflow(int_type unit) override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  int sync() override;

 private:
  HANDLE console_;
  std::string waiting_;  // for the end of a character, or for more
};

}  // namespace norvo::cli

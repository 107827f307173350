#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"

namespace norvo {
namespace {

std::string ProgramName() {
#ifdef __GLIBC__
  return program_invocation_short_name;
#else
  return ::getprogname();
#endif
}

std::string UserName() {
  const char* const name = std::getenv("USER");
  return name != nullptr ? name : "user " + std::to_string(::getuid());
}

std::string HostName() {
  char name[256] = {};
  return ::gethostname(name, sizeof name - 1) == 0 ? name : "this system";
}

}  // namespace

LockAnswer LockFile(const SystemFile& file, bool wait) {
  // Not a lock of fcntl's: that would end with any other opening of the file by this process.
  int result = -1;
  do {
    result = ::flock(DescriptorOf(file), LOCK_EX | (wait ? 0 : LOCK_NB));
  } while (result != 0 && errno == EINTR);
  if (result == 0) return LockAnswer::Taken;
  return errno == EWOULDBLOCK ? LockAnswer::Busy : LockAnswer::Refused;
}

void UnlockFile(const SystemFile& file) {
  ::flock(DescriptorOf(file), LOCK_UN);
}

std::string ThisProcess() {
  return ProgramName() + " (process " + std::to_string(::getpid()) + " of " + UserName() + " on " +
         HostName() + ")";
}

}  // namespace norvo

#pragma once

#ifdef __linux__

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace norvo {

/// One call that the system is to refuse, or to end the process at.
struct Refusal {
  long call = 0;
  std::uint32_t reason = 0;   ///< `errno`; 0 ends the process, as a kill just before the call does
  int argument = -1;          ///< 0-based; -1 refuses every such call
  std::uint32_t allBits = 0;  ///< else only those whose argument has all these bits
};

/// Makes this process's system a poorer one from now on, for good: for processes made by a test
/// only. False where that cannot be.
inline bool RefuseCalls(const std::vector<Refusal>& refusals) {
  const auto load = [](std::size_t offset) {
    return sock_filter{BPF_LD | BPF_W | BPF_ABS, 0, 0, static_cast<std::uint32_t>(offset)};
  };
  const auto skipUnlessEqual = [](std::uint32_t value, std::uint8_t skipped) {
    return sock_filter{BPF_JMP | BPF_JEQ | BPF_K, 0, skipped, value};
  };
  const auto answer = [](std::uint32_t value) { return sock_filter{BPF_RET | BPF_K, 0, 0, value}; };
  std::vector<sock_filter> program;
  for (const Refusal& each : refusals) {
    const std::uint32_t verdict =
        each.reason == 0 ? SECCOMP_RET_KILL_PROCESS : SECCOMP_RET_ERRNO | each.reason;
    program.push_back(load(offsetof(seccomp_data, nr)));
    program.push_back(skipUnlessEqual(static_cast<std::uint32_t>(each.call),
                                      each.argument < 0 ? std::uint8_t{1} : std::uint8_t{4}));
    if (each.argument >= 0) {
      // Little-endian: the lower half of an argument comes first.
      program.push_back(load(offsetof(seccomp_data, args) +
                             static_cast<std::size_t>(each.argument) * sizeof(std::uint64_t)));
      program.push_back({BPF_ALU | BPF_AND | BPF_K, 0, 0, each.allBits});
      program.push_back(skipUnlessEqual(each.allBits, 1));
    }
    program.push_back(answer(verdict));
  }
  program.push_back(answer(SECCOMP_RET_ALLOW));
  const sock_fprog filter = {static_cast<unsigned short>(program.size()), program.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

}  // namespace norvo

#endif

#include "support/windows/OwnProgram.h"

#include <stdexcept>

namespace norvo {

OwnProgram::OwnProgram(const std::string& test) {
  wchar_t program[MAX_PATH + 1] = {};
  ::GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring command = L"\"" + std::wstring(program) +
                         L"\" --gtest_brief=1 --gtest_also_run_disabled_tests --gtest_filter=" +
                         std::wstring(test.begin(), test.end());
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION started = {};
  if (!::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &start, &started)) {
    throw std::runtime_error("the test program cannot be started once more");
  }
  ::CloseHandle(started.hThread);
  process_ = started.hProcess;
  number_ = started.dwProcessId;
}

void OwnProgram::Kill() {
  if (process_ == nullptr) return;
  ::TerminateProcess(process_, 1);
  ::WaitForSingleObject(process_, INFINITE);
  ::CloseHandle(std::exchange(process_, nullptr));
}

}  // namespace norvo

// Keeps a file to itself, as a program does that works on it, until its standard input ends.
#include <windows.h>

#include <cstdio>

int main(int count, char** words) {
  if (count != 2) return 2;
  const HANDLE file = ::CreateFileA(words[1], GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  std::puts("held");
  std::fflush(stdout);
  while (std::getchar() != EOF) {
  }
  ::CloseHandle(file);
}

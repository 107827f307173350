#include "MachineFiles.h"

#include <string_view>

#include "Files.h"

namespace norvo::bench {
namespace {

constexpr std::string_view kDescription =
    "[Drives]\r\n"
    "C=fixed\r\n"
    "\r\n"
    "[ShellFolders]\r\n"
    "5=C:\\My Documents\r\n";

constexpr std::string_view kRegistry =
    "Windows Registry Editor Version 5.00\r\n"
    "\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS]\r\n"
    "\"mode\"=dword:00000000\r\n"
    "\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS\\KVMediaPlayLists]\r\n"
    "\"SubGroupRootName\"=\"C:\\\\My Documents\\\\Norvo Media\\\\\"\r\n"
    "\r\n"
    "[HKEY_LOCAL_MACHINE\\C:\\My Documents\\Norvo Media\\KVs\\KVMediaPlayLists]\r\n"
    "\r\n";

constexpr std::string_view kSubNames =
    "[PlayListStrings]\r\n"
    "SzID001=Music\r\n"
    "SzID002=Music\r\n"
    "SzID003=Music\r\n"
    "SzID004=Music\r\n"
    "szID005=PlayLists\r\n"
    "szID006=\r\n";

}  // namespace

void WriteMachineFiles(const std::filesystem::path& machine) {
  const std::filesystem::path groupRoot = machine / "C" / "My Documents" / "Norvo Media";
  std::filesystem::create_directories(groupRoot / "KVs");
  WriteFile(machine / "machine.ini", kDescription);
  WriteFile(machine / "registry.reg", kRegistry);
  WriteFile(groupRoot / "SubNames.txt", kSubNames);
}

}  // namespace norvo::bench

#include "machines/ThisPc.h"

#include <windows.h>
#include <winternl.h>

#include <gtest/gtest.h>

#include "support/TextPrinting.h"
#include "support/windows/ImportTable.h"

namespace norvo {
namespace {

constexpr const char* kOpening = "NtCreateFile";
constexpr auto kAccessDenied = static_cast<NTSTATUS>(0xC0000022);
decltype(&::NtCreateFile) realOpening = nullptr;

/// Of the name "Denied" alone.
NTSTATUS NTAPI Deny(PHANDLE file, ACCESS_MASK access, POBJECT_ATTRIBUTES named,
                    PIO_STATUS_BLOCK block, PLARGE_INTEGER size, ULONG attributes, ULONG share,
                    ULONG disposition, ULONG options, PVOID extended, ULONG extendedSize) {
  const StringView name(reinterpret_cast<const char16_t*>(named->ObjectName->Buffer),
                        named->ObjectName->Length / sizeof(char16_t));
  if (name.ends_with(u"Denied")) return kAccessDenied;
  return realOpening(file, access, named, block, size, attributes, share, disposition, options,
                     extended, extendedSize);
}

TEST(ThisPc, WhatItsDrivesDenyIsToldToWhoListensToIt) {
  const std::shared_ptr<ThisPc> pc = OpenThisPc();
  Lines told;
  pc->Machine()->SetWarningSink(
      [&told](StringView line, WarningWeight) { told.push_back(Utf8(line)); });
  realOpening = reinterpret_cast<decltype(realOpening)>(
      ExchangeImport(kOpening, reinterpret_cast<Address>(&Deny)));
  const bool isThere = pc->Disks()->Files().FileExists(u"C:\\windows\\Denied");
  ExchangeImport(kOpening, reinterpret_cast<Address>(realOpening));
  EXPECT_FALSE(isThere);
  ASSERT_EQ(told.size(), 1u);
  EXPECT_NE(told[0].find("C:\\windows\\Denied: the system denies a look at it"), std::string::npos)
      << told[0];
}

}  // namespace
}  // namespace norvo

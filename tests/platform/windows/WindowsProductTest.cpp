#include "platform/windows/WindowsProduct.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/WideText.h"
#include "support/MemoryPlatform.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

class WindowsProductTest : public ::testing::Test {
 protected:
  MemoryPlatform machine_;
  WindowsProduct product_{machine_.Registry()};
};

TEST_F(WindowsProductTest, TheRegistryNamesTheProductAndItsFolder) {
  machine_.SetRegistry(Hive::LocalMachine, u"SOFTWARE\\Norvo\\Migration", u"ProductFolder",
                       String(u"D:\\Norvo"));
  machine_.SetRegistry(Hive::LocalMachine, u"SOFTWARE\\Norvo\\Migration", u"ProductName",
                       String(u"Mover"));
  EXPECT_TEXT(product_.BaseKey(), u"SOFTWARE\\Norvo\\Migration");
  EXPECT_TEXT(product_.Folder(), u"D:\\Norvo\\");
  EXPECT_TEXT(product_.Name(), u"Mover");
  machine_.SetRegistry(Hive::CurrentUser, u"SOFTWARE\\Norvo\\Migration", u"ProductFolder",
                       String(u"E:\\Mine\\"));
  EXPECT_TEXT(product_.Folder(), u"E:\\Mine\\") << "the user's key goes before the machine's";
}

TEST_F(WindowsProductTest, OtherwiseTheFolderIsThatOfThisProgram) {
  wchar_t program[MAX_PATH] = {};
  ASSERT_NE(::GetModuleFileNameW(nullptr, program, MAX_PATH), 0u);
  const String path = FromWide(program);
  EXPECT_TEXT(product_.Folder(), path.substr(0, path.rfind(u'\\') + 1));
  EXPECT_TEXT(product_.Name(), u"");
}

}  // namespace
}  // namespace norvo

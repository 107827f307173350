#include "platform/hosted/MachineSettings.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

TEST(MachineSettingsTest, WithoutDrivesNoneAreTold) {
  for (const char* const bytes : {"", "[ShellFolders]\n5=D:\\Docs\n", "C=fixed\n"}) {
    EXPECT_FALSE(ReadMachineSettings(bytes).drives) << bytes;
  }
  const MachineSettings settings = ReadMachineSettings("[Drives]\nlong=fixed\n");
  ASSERT_TRUE(settings.drives);
  EXPECT_TRUE(settings.drives->empty());
}

TEST(MachineSettingsTest, DrivesStandInTheOrderOfTheirLettersEachOnce) {
  const MachineSettings settings =
      ReadMachineSettings("[Drives]\nx=cdrom , /mnt/a, b \nc=FIXED\nX=fixed\n");
  ASSERT_TRUE(settings.drives);
  ASSERT_EQ(settings.drives->size(), 2u);
  EXPECT_EQ(settings.drives->front().letter, u'C');
  EXPECT_EQ(settings.drives->front().type, DriveType::Fixed);
  EXPECT_TEXT(settings.drives->front().folder, u"");
  EXPECT_EQ(settings.drives->back().letter, u'X');
  EXPECT_EQ(settings.drives->back().type, DriveType::CdRom);
  EXPECT_TEXT(settings.drives->back().folder, u"/mnt/a, b");
}

TEST(MachineSettingsTest, FoldersAreReadInEachEncoding) {
  const String text = u"[ShellFolders]\r\n13=C:\\M\u00FCsik\r\n";
  const std::string utf8 = ToUtf8(text);
  std::string ansi;
  std::string utf16 = "\xFF\xFE";
  for (const char16_t unit : text) {
    ansi += static_cast<char>(unit);
    utf16 += {static_cast<char>(unit), '\0'};
  }
  for (const std::string& bytes : {utf8, "\xEF\xBB\xBF" + utf8, ansi, utf16}) {
    const MachineSettings settings = ReadMachineSettings(bytes);
    ASSERT_EQ(settings.shellFolders.size(), 1u) << bytes;
    EXPECT_TEXT(settings.shellFolders.at(13), u"C:\\M\u00FCsik");
  }
}

TEST(MachineSettingsTest, ATypeThatIsNoneIsNamed) {
  const MachineSettings settings = ReadMachineSettings("[Drives]\nE=floppy,drives/e\nF=\n");
  EXPECT_EQ(settings.warnings,
            (std::vector<String>{u"machine.ini: drive E: has the unknown type \"floppy\"",
                                 u"machine.ini: drive F: has the unknown type \"\""}));
  ASSERT_EQ(settings.drives->size(), 2u);
  EXPECT_EQ(settings.drives->front().type, DriveType::Unknown);
}

}  // namespace
}  // namespace norvo

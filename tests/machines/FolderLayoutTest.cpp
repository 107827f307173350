#include "machines/FolderLayout.h"

#include "machines/MachineFoldersTest.h"
#include "services/Platform.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

class FolderLayoutTest : public MachineFoldersTest {
 protected:
  void Make(const std::string& folder) const { fs::create_directories(At(folder)); }
  FolderLayout Of(const std::string& folder, const LayoutWishes& wishes = {}) const {
    return LayOut(TakeFolder(At(folder)), wishes);
  }
  std::string DocumentsOf(const std::string& folder, const LayoutWishes& wishes = {}) const {
    const auto folders = Of(folder, wishes).layout.shellFolders;
    const auto found = folders.find(ShellFolders::kDocuments);
    return found == folders.end() ? "" : ToUtf8(found->second);
  }
  MoveError ErrorOfLayout(const std::string& folder, const LayoutWishes& wishes = {}) const {
    return ErrorOf([&] { return Of(folder, wishes).layout; });
  }
  void PutGroupRoot(const std::string& file, const std::string& root) const {
    Put(At(file),
        "Windows Registry Editor Version 5.00\r\n\r\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS\\KVMediaPlayLists]\r\n"
        "\"SubGroupRootName\"=\"" +
            root + "\"\r\n");
  }
  /// A disk with two users.
  void PutShared() const {
    Make("disk/Users/Ann/Documents");
    Make("disk/Users/Bob/Documents");
  }

  const std::string kAnn = R"(C:\Users\Ann\Documents)";
  const std::string kBob = R"(C:\Users\Bob\Documents)";
};

// --------------------------------------------------------------------------------- machines ----

TEST_F(FolderLayoutTest, AMachineIsLaidOutAsItTells) {
  Put(At("old/machine.ini"), "[Drives]\r\nC=fixed\r\nE=cdrom\r\n[ShellFolders]\r\n5=C:\\Mine\r\n");
  Make("old/C/Users/Ann/Documents");
  const FolderLayout folder = Of("old");
  EXPECT_EQ(folder.layout.drives.size(), 2u);
  EXPECT_EQ(folder.layout.registryFile, At("old/registry.reg"));
  EXPECT_EQ(DocumentsOf("old"), "C:\\Mine");
  EXPECT_EQ(folder.usualGroupRoot, "");
  EXPECT_EQ(folder.registryPath, "");
}

TEST_F(FolderLayoutTest, AMachineTakesWishesToo) {
  Make("old/C/Users/Ann/Documents");
  Make("old/D/Users/Bob/Documents");
  EXPECT_EQ(DocumentsOf("old"), "");
  EXPECT_EQ(DocumentsOf("old", {"bob", {}, {}}), R"(D:\Users\Bob\Documents)");
  EXPECT_EQ(DocumentsOf("old", {{}, R"(D:\Mine)", {}}), R"(D:\Mine)");
  EXPECT_EQ(Of("old", {{}, R"(D:\Mine)", {}}).usualGroupRoot, R"(D:\Mine\Norvo Media\)");
}

TEST_F(FolderLayoutTest, AMachineIniThatCannotBeReadIsTold) {
  Put(At("old/machine.ini"), "[Drives]\r\nC=fixed\r\n");
  const TakenFolder taken = TakeFolder(At("old"));
  fs::remove_all(At("old"));
  EXPECT_EQ(ErrorOf([&] { return LayOut(taken).layout; }).Fault(), MoveFault::NoMachine);
}

TEST_F(FolderLayoutTest, AMissingFolderIsLaidOutAsItWillBe) {
  const FolderLayout folder = Of("new");
  ASSERT_EQ(folder.layout.drives.size(), 1u);
  EXPECT_EQ(folder.layout.drives[0].folder, At("new/C"));
  EXPECT_EQ(folder.layout.drives[0].type, DriveType::Fixed);
  EXPECT_EQ(folder.layout.registryFile, At("new/registry.reg"));
  EXPECT_FALSE(fs::exists(At("new")));
}

// ------------------------------------------------------------------------------------- disks ----

TEST_F(FolderLayoutTest, ADiskIsTheOneDriveAndHasItsRegistryInTheProductsFolder) {
  PutDisk("disk");
  const FolderLayout folder = Of("disk");
  ASSERT_EQ(folder.layout.drives.size(), 1u);
  EXPECT_EQ(folder.layout.drives[0].letter, u'C');
  EXPECT_EQ(folder.layout.drives[0].type, DriveType::Fixed);
  EXPECT_EQ(folder.layout.drives[0].folder, At("disk"));
  EXPECT_EQ(folder.layout.registryFile, At("disk/Norvo/registry.reg"));
  EXPECT_EQ(folder.registryPath, R"(C:\Norvo\registry.reg)");
  EXPECT_FALSE(fs::exists(At("disk/Norvo")));
}

TEST_F(FolderLayoutTest, TheRegistryOfADiskIsFoundInWhateverCase) {
  PutGroupRoot("disk/NORVO/Registry.REG", R"(C:\\Here\\)");
  EXPECT_EQ(Of("disk").layout.registryFile, At("disk/NORVO/Registry.REG"));
  EXPECT_EQ(Of("disk").groupRoot, u"C:\\Here\\");
}

TEST_F(FolderLayoutTest, ALinkOfADiskDoesNotHaveItsRegistryWrittenElsewhere) {
  PutDisk("disk");
  Make("elsewhere");
  fs::create_directory_symlink(At("elsewhere"), At("disk/Norvo"));
  ExpectError(ErrorOfLayout("disk"), MoveFault::LeadsOut, At("disk/Norvo/registry.reg").string(),
              At("disk").string());
}

TEST_F(FolderLayoutTest, TheDocumentsOfADiskAreThoseOfItsUser) {
  Make("disk/Users/Ann/Documents");
  Make("disk/Users/Public/Documents");
  EXPECT_EQ(DocumentsOf("disk"), kAnn);
  EXPECT_EQ(Of("disk").usualGroupRoot, kAnn + R"(\Norvo Media\)");
}

TEST_F(FolderLayoutTest, ADiskWithoutUsersHasTheUsualDocumentsFolderOnItsOwnDrive) {
  PutDisk("disk");
  EXPECT_EQ(DocumentsOf("disk"), R"(C:\My Documents)");
  const FolderLayout other = LayOut(TakeFolder(At("disk"), "E"));
  EXPECT_EQ(other.usualGroupRoot, R"(E:\My Documents\Norvo Media\)");
  EXPECT_EQ(other.registryPath, R"(E:\Norvo\registry.reg)");
}

TEST_F(FolderLayoutTest, OfSeveralUsersItMustBeAskedWhoIsMeant) {
  PutShared();
  ExpectError(ErrorOfLayout("disk"), MoveFault::ManyUsers, At("disk").string(), "Ann, Bob");
  EXPECT_EQ(DocumentsOf("disk", {"BOB", {}, {}}), kBob);
  EXPECT_EQ(DocumentsOf("disk", {{}, R"(C:\Shared)", {}}), R"(C:\Shared)");
}

TEST_F(FolderLayoutTest, NobodyIsAskedWhereItIsNoMatter) {
  PutShared();
  const LayoutWishes wishes{{}, {}, {}, false};
  EXPECT_EQ(DocumentsOf("disk", wishes), "");
  EXPECT_EQ(Of("disk", wishes).usualGroupRoot, "");
}

TEST_F(FolderLayoutTest, TheUserWhoseDocumentsHoldTheProductsDataIsMeant) {
  PutShared();
  Make("disk/Users/Bobby/Documents");
  PutGroupRoot("disk/Norvo/registry.reg", R"(c:\\USERS\\bob\\Documents\\Norvo Media\\)");
  EXPECT_EQ(DocumentsOf("disk"), kBob);
  EXPECT_EQ(DocumentsOf("disk", {"BOB", {}, {}}), kBob);
  ExpectError(ErrorOfLayout("disk", {"Ann", {}, {}}), MoveFault::OtherUser, "Ann", "Bob");
  PutGroupRoot("disk/Norvo/registry.reg", R"(C:\\Norvo Media\\)");
  EXPECT_EQ(ErrorOfLayout("disk").Fault(), MoveFault::ManyUsers);
}

TEST_F(FolderLayoutTest, SoIsTheOneWhoseDocumentsShallHoldThem) {
  PutShared();
  EXPECT_EQ(DocumentsOf("disk", {{}, {}, kBob + R"(\Norvo Media)"}), kBob);
}

TEST_F(FolderLayoutTest, AUserWhoIsNotThereIsRefusedWithThoseWhoAre) {
  PutShared();
  ExpectError(ErrorOfLayout("disk", {"Zoe", {}, {}}), MoveFault::UnknownUser, "Zoe", "Ann, Bob");
  PutDisk("music");
  ExpectError(ErrorOfLayout("music", {"Zoe", {}, {}}), MoveFault::UnknownUser, "Zoe", "");
}

TEST_F(FolderLayoutTest, WishedPathsAreFullOnesOnADriveThatThereIs) {
  PutDisk("disk");
  for (const char* const path : {"Media", "\\Media", "C:", "C:\\", "C:Media", "\xFF:\\Media"}) {
    ExpectError(ErrorOfLayout("disk", {{}, path, {}}), MoveFault::DocumentsNotFull, path);
    ExpectError(ErrorOfLayout("disk", {{}, {}, path}), MoveFault::GroupRootNotFull, path);
  }
  ExpectError(ErrorOfLayout("disk", {{}, R"(D:\Mine)", {}}), MoveFault::DocumentsNowhere,
              R"(D:\Mine)", "D:");
  ExpectError(ErrorOfLayout("disk", {{}, {}, R"(D:\Mine)"}), MoveFault::GroupRootNowhere,
              R"(D:\Mine)", "D:");
  EXPECT_EQ(DocumentsOf("disk", {{}, R"(c:/Some//Mine\)", {}}), R"(c:\Some\Mine)");
}

TEST_F(FolderLayoutTest, NothingIsWritten) {
  PutShared();
  const auto before = Tree(At(""));
  Of("disk", {"Ann", {}, {}});
  Of("new");
  EXPECT_EQ(Tree(At("")), before);
}

}  // namespace
}  // namespace norvo

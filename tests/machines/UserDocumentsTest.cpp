#include "machines/UserDocuments.h"

#include "machines/MachineFoldersTest.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

class UserDocumentsTest : public MachineFoldersTest {
 protected:
  void Make(const std::string& folder) const { fs::create_directories(At("disk") / folder); }
  std::vector<UserDocuments> Found(char16_t letter = u'C') const {
    return DocumentsOn({letter, DriveType::Fixed, At("disk")});
  }
  /// "Ann: C:\Users\Ann\Documents"
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const UserDocuments& each : Found()) {
      lines.push_back(each.user + ": " + ToUtf8(each.path));
    }
    return lines;
  }
  using Texts = std::vector<std::string>;
};

TEST_F(UserDocumentsTest, AreWhereANewerWindowsHasThem) {
  Make("Users/Zoe/Documents");
  Make("Users/Ann/Documents");
  EXPECT_EQ(Lines(), (Texts{R"(Ann: C:\Users\Ann\Documents)", R"(Zoe: C:\Users\Zoe\Documents)"}));
  EXPECT_EQ(NamesOf(Found()), "Ann, Zoe");
}

TEST_F(UserDocumentsTest, AreWhereAnOlderWindowsHasThem) {
  Make("Documents and Settings/Ann/My Documents");
  Make("Documents and Settings/Bob/Documents");
  EXPECT_EQ(Lines(), Texts{R"(Ann: C:\Documents and Settings\Ann\My Documents)"});
}

TEST_F(UserDocumentsTest, AreInTheCloudFolderOfAUserWhoHasNoOthers) {
  Make("Users/Ann/OneDrive/Documents");
  Make("Users/Bob/Documents");
  Make("Users/Bob/OneDrive/Documents");
  Make("Users/Zoe/OneDrive/Pictures");
  EXPECT_EQ(Lines(),
            (Texts{R"(Ann: C:\Users\Ann\OneDrive\Documents)", R"(Bob: C:\Users\Bob\Documents)"}));
}

TEST_F(UserDocumentsTest, AreFoundInWhateverCaseAndSpelledAsOnTheDisk) {
  Make("USERS/ann/documents");
  EXPECT_EQ(Lines(), Texts{R"(ann: C:\USERS\ann\documents)"});
}

TEST_F(UserDocumentsTest, HaveTheLetterOfTheirDrive) {
  Make("Users/Ann/Documents");
  EXPECT_EQ(Found(u'E').at(0).path, u"E:\\Users\\Ann\\Documents");
}

TEST_F(UserDocumentsTest, AreNotThoseOfTheSystemsOwnUsers) {
  for (const char* const user : {"All Users", "default", "Default User", "PUBLIC", "LocalService",
                                 "NetworkService", "defaultuser0"}) {
    Make(std::string("Users/") + user + "/Documents");
    Make(std::string("Documents and Settings/") + user + "/My Documents");
  }
  Put(At("disk/Users/desktop.ini"), "");
  EXPECT_EQ(Lines(), Texts());
}

TEST_F(UserDocumentsTest, AreFoldersAndNoLinks) {
  Put(At("disk/Users/Ann/Documents"), "a file");
  Make("Users/Bob");
  fs::create_directories(At("elsewhere/Documents"));
  fs::create_directory_symlink(At("elsewhere"), At("disk/Users/Cid"));
  fs::create_directory_symlink(At("elsewhere/Documents"), At("disk/Users/Bob/Documents"));
  EXPECT_EQ(Lines(), Texts());
}

TEST_F(UserDocumentsTest, OfAUserInBothPlacesTheNewerOnesCount) {
  Make("Documents and Settings/ANN/My Documents");
  Make("Users/Ann/Documents");
  EXPECT_EQ(Lines(), Texts{R"(Ann: C:\Users\Ann\Documents)"});
}

TEST_F(UserDocumentsTest, AreNoneOnADriveThatIsNotThere) {
  EXPECT_EQ(Lines(), Texts());
  EXPECT_EQ(NamesOf({}), "");
}

}  // namespace
}  // namespace norvo

#include "platform/windows/MountedDisk.h"

#include "ScratchFolder.h"
#include "support/windows/ImportTable.h"

namespace norvo {
namespace {

/// What the system tells of the folder "disk", in which no test can mount a real one.
struct MountedFolder {
  bool isVolume = true;  // else the link is a junction
  String paths;          // of the volume, each with a zero behind it
  decltype(&::FindNextFileW) findNext = nullptr;
  decltype(&::GetVolumeNameForVolumeMountPointW) volumeName = nullptr;
  decltype(&::GetVolumePathNamesForVolumeNameW) pathNames = nullptr;
} mounted;

BOOL WINAPI FindNext(HANDLE search, WIN32_FIND_DATAW* found) {
  const BOOL result = mounted.findNext(search, found);
  if (result && FromWide(found->cFileName) == u"disk") {
    found->dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    found->dwReserved0 = IO_REPARSE_TAG_MOUNT_POINT;
  }
  return result;
}

BOOL WINAPI VolumeName(const wchar_t* folder, wchar_t* name, DWORD size) {
  constexpr StringView kVolume = u"\\\\?\\Volume{01234567-89ab-cdef-0123-456789abcdef}\\";
  const bool isDisk = FromWide(folder).ends_with(u"\\disk\\");
  if (!mounted.isVolume || !isDisk || size <= kVolume.size()) {
    ::SetLastError(ERROR_NOT_A_REPARSE_POINT);
    return FALSE;
  }
  *std::copy(kVolume.begin(), kVolume.end(), name) = L'\0';
  return TRUE;
}

BOOL WINAPI PathNames(const wchar_t*, wchar_t* names, DWORD size, DWORD* needed) {
  const String all = mounted.paths + u'\0';
  *needed = static_cast<DWORD>(all.size());
  if (size < all.size()) {
    ::SetLastError(ERROR_MORE_DATA);
    return FALSE;
  }
  std::copy(all.begin(), all.end(), names);
  return TRUE;
}

template <class Function>
Function Exchange(const char* name, Function function) {
  return reinterpret_cast<Function>(ExchangeImport(name, reinterpret_cast<Address>(function)));
}

class MountedDiskTest : public ScratchFolder {
 protected:
  MountedDiskTest() {
    mounted = {};
    mounted.findNext = Exchange("FindNextFileW", &FindNext);
    mounted.volumeName = Exchange("GetVolumeNameForVolumeMountPointW", &VolumeName);
    mounted.pathNames = Exchange("GetVolumePathNamesForVolumeNameW", &PathNames);
    MakeFolder(u"disk");
    MakeFolder(u"plain");
  }
  ~MountedDiskTest() override {
    Exchange("FindNextFileW", mounted.findNext);
    Exchange("GetVolumeNameForVolumeMountPointW", mounted.volumeName);
    Exchange("GetVolumePathNamesForVolumeNameW", mounted.pathNames);
  }
  /// What a search is told on its way through the folder.
  Lines Told() {
    EXPECT_EQ(List(Path(u"")), Lines{"plain/"});
    Lines told;
    for (const String& line : std::exchange(warnings_, {})) told.push_back(Utf8(line));
    return told;
  }
};

TEST_F(MountedDiskTest, OneWithoutALetterIsToldOnce) {
  mounted.paths = Path(u"disk\\") + u'\0';
  EXPECT_EQ(Told(), Lines{Utf8(Path(u"disk")) +
                          ": a disk without a letter is mounted in this folder; it was not "
                          "searched"});
  EXPECT_EQ(Told(), Lines());
}

TEST_F(MountedDiskTest, OneWithALetterIsSearchedByThat) {
  mounted.paths = Path(u"disk\\") + u'\0' + u"Q:\\" + u'\0';
  EXPECT_EQ(Told(), Lines());
}

TEST_F(MountedDiskTest, AJunctionIsNone) {
  mounted.isVolume = false;
  EXPECT_EQ(Told(), Lines());
}

TEST_F(MountedDiskTest, ManyPathsOfADiskAreAllLookedAt) {
  for (int i = 0; i < 50; ++i) mounted.paths += Path(u"disk\\") + u'\0';
  EXPECT_TRUE(IsDiskWithoutLetter(System(Path(u"disk"))));
  mounted.paths += String(u"Q:\\") + u'\0';
  EXPECT_FALSE(IsDiskWithoutLetter(System(Path(u"disk"))));
}

TEST_F(MountedDiskTest, AFolderIsNone) {
  EXPECT_FALSE(IsDiskWithoutLetter(System(Path(u"plain"))));
}

}  // namespace
}  // namespace norvo

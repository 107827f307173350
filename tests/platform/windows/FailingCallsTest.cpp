#include "FailingCalls.h"

#include "ScratchFolder.h"

namespace norvo {
namespace {

/// The failing itself.
class FailingCallsTest : public ScratchFolder {
 protected:
  /// The code with which the system tells that there is no such file; 0 when there is one.
  DWORD CodeOfLooking() {
    const bool there = ::GetFileAttributesW(ToWide(System(Path(u"a")))) != INVALID_FILE_ATTRIBUTES;
    return there ? 0 : ::GetLastError();
  }

  static constexpr CallFault kOnce = {"once", CallFault::Calls::Looking, ERROR_IO_DEVICE};
  static constexpr CallFault kOnwards = {"onwards", CallFault::Calls::Looking, ERROR_CRC, true};
  static constexpr CallFault kFull = {"full", CallFault::Calls::Changing, ERROR_DISK_FULL};
};

TEST_F(FailingCallsTest, OneCallFailsAndIsNotMade) {
  Put(u"a", "x");
  FailingCalls calls(kOnce, 2);
  EXPECT_EQ(CodeOfLooking(), 0u);
  EXPECT_EQ(calls.Count(), 0u);
  EXPECT_EQ(CodeOfLooking(), DWORD{ERROR_IO_DEVICE});
  EXPECT_EQ(calls.Failed(), "GetFileAttributesW");
  EXPECT_EQ(CodeOfLooking(), 0u);
  EXPECT_EQ(calls.Count(), 1u);
}

TEST_F(FailingCallsTest, EveryCallFailsFromThereOnUntilTheEnd) {
  Put(u"a", "x");
  {
    FailingCalls calls(kOnwards, 2);
    EXPECT_EQ(CodeOfLooking(), 0u);
    EXPECT_EQ(CodeOfLooking(), DWORD{ERROR_CRC});
    EXPECT_EQ(CodeOfLooking(), DWORD{ERROR_CRC});
    EXPECT_EQ(calls.Count(), 2u);
  }
  EXPECT_EQ(CodeOfLooking(), 0u);
}

TEST_F(FailingCallsTest, AChangeIsNoLook) {
  Put(u"a", "x");
  FailingCalls calls(kFull, 1);
  EXPECT_EQ(CodeOfLooking(), 0u);
  EXPECT_FALSE(::DeleteFileW(ToWide(System(Path(u"a")))));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_DISK_FULL});
  EXPECT_EQ(CodeOfLooking(), 0u);
}

TEST_F(FailingCallsTest, AHandleIsNotOpenAndTheRegistryGivesTheReason) {
  {
    FailingCalls calls(kOnce, 1);
    EXPECT_EQ(::CreateFileW(ToWide(System(Path(u"a"))), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0,
                            nullptr),
              INVALID_HANDLE_VALUE);
  }
  EXPECT_FALSE(Exists(u"a"));
  HKEY key = nullptr;
  FailingCalls calls(kOnce, 1);
  EXPECT_EQ(::RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_QUERY_VALUE, &key),
            LSTATUS{ERROR_IO_DEVICE});
  EXPECT_EQ(key, nullptr);
}

}  // namespace
}  // namespace norvo

// Collects the playlists of this machine: each becomes a neutral file in the folder KVs of the
// product's group root. Early-bound: the calls go through the interfaces of NorvoPlayList.h.

#include <NorvoPlayList.h>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace {

constexpr long kCollect = 0;

const char kNoSettings[] =
    "The drives cannot be scanned. Most likely the product's settings are missing: the\n"
    "value mode of SOFTWARE\\Norvo\\Migration\\KVS, and SubGroupRootName of its sub-key\n"
    "KVMediaPlayLists, in the registry of the current user or the machine.";

std::string ToUtf8(BSTR text) {
  const int length = static_cast<int>(::SysStringLen(text));
  const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text, length, result.data(), size, nullptr, nullptr);
  return result;
}

/// What the library has left for the caller of a member that failed.
std::string LastDescription() {
  IErrorInfo* information = nullptr;
  if (::GetErrorInfo(0, &information) != S_OK) return "no description";
  BSTR description = nullptr;
  information->GetDescription(&description);
  std::string text = ToUtf8(description);
  ::SysFreeString(description);
  information->Release();
  return text;
}

void Check(HRESULT status, const char* what) {
  if (SUCCEEDED(status)) return;
  char code[16];
  std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(status));
  throw std::runtime_error(std::string(what) + ": " + code + ", " + LastDescription());
}

/// The thread's apartment, as long as this lives. The library's objects belong to it.
class ComApartment {
 public:
  ComApartment() {
    Check(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "COM does not start");
  }
  ~ComApartment() { ::CoUninitialize(); }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
};

class Manager {
 public:
  Manager() {
    Check(::CoCreateInstance(__uuidof(helperMan), nullptr, CLSCTX_INPROC_SERVER,
                             __uuidof(_helperMan), reinterpret_cast<void**>(&face_)),
          "The library is not registered (regsvr32 NorvoPlayList.dll)");
  }
  ~Manager() { face_->Release(); }
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  _helperMan* operator->() const { return face_; }

 private:
  _helperMan* face_ = nullptr;
};

/// Scans the drives. The library answers false, and raises nothing, when that is not possible.
void List(const Manager& manager) {
  VARIANT_BOOL listed = VARIANT_FALSE;
  Check(manager->GetAllPlaylists(&listed), "GetAllPlaylists");
  if (listed == VARIANT_FALSE) throw std::runtime_error(kNoSettings);
}

/// An early-bound caller gets an array of texts, and owns it.
void PrintList(const Manager& manager) {
  SAFEARRAY* paths = nullptr;
  Check(manager->GetPLSList(&paths), "GetPLSList");
  BSTR* elements = nullptr;
  Check(::SafeArrayAccessData(paths, reinterpret_cast<void**>(&elements)), "SafeArrayAccessData");
  const ULONG count = paths->rgsabound[0].cElements;
  for (ULONG i = 0; i < count; ++i) std::printf("%s\n", ToUtf8(elements[i]).c_str());
  std::printf("%lu playlists found\n", count);
  ::SafeArrayUnaccessData(paths);
  ::SafeArrayDestroy(paths);
}

void Collect(const Manager& manager) {
  long mode = kCollect;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(manager->GenericQueue(&mode, &done), "GenericQueue");
  std::puts(done != VARIANT_FALSE
                ? "Done: the neutral files are in the folder KVs of the group root."
                : "No playlist with entries was found.");
}

}  // namespace

int main() {
  try {
    const ComApartment apartment;
    const Manager manager;
    List(manager);
    PrintList(manager);
    // Reading the list has consumed it; the queue needs a new one.
    List(manager);
    Collect(manager);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
  return 0;
}

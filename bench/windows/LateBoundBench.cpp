// What a late-bound call of the library costs against one of a class of the system's own, in the
// same run: a property is put and got a million times through IDispatch::Invoke.
//
//   late_bound_bench path-of-NorvoPlayList.dll
//
// Under Wine the system's class is Wine's; neither figure says much without the other.

#include <windows.h>

#include <ole2.h>

#include <initguid.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <string>

#include "com/NorvoPlayList.h"

namespace {

constexpr int kCalls = 1'000'000;
constexpr int kRounds = 5;

/// A property of one object that holds a 32-bit number.
class Property {
 public:
  Property(IDispatch* object, const wchar_t* name) : object_(object) {
    std::wstring text(name);
    LPOLESTR names = text.data();
    isKnown_ = SUCCEEDED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member_));
  }

  bool IsKnown() const { return isKnown_; }
  bool Put(LONG number) {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS given{&value, &put, 1, 1};
    return SUCCEEDED(object_->Invoke(member_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT,
                                     &given, nullptr, nullptr, nullptr));
  }
  bool Get() {
    VARIANT value{};
    DISPPARAMS none{};
    return SUCCEEDED(object_->Invoke(member_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                     &none, &value, nullptr, nullptr)) &&
           value.vt == VT_I4;
  }

 private:
  IDispatch* object_;
  DISPID member_ = DISPID_UNKNOWN;
  bool isKnown_ = false;
};

/// Nanoseconds of one call, the best of some rounds; negative when a call fails.
template <class Work>
double Measure(Work&& work) {
  std::array<double, kRounds> rounds{};
  for (double& round : rounds) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kCalls; ++i) {
      if (!work()) return -1;
    }
    const std::chrono::duration<double, std::nano> passed =
        std::chrono::steady_clock::now() - start;
    round = passed.count() / kCalls;
  }
  return *std::ranges::min_element(rounds);
}

void Compare(const char* what, double own, double systems) {
  std::printf(
      "%s: Entry.NativeFormat %.1f ns, Dictionary.CompareMode %.1f ns, difference %+.1f ns\n", what,
      own, systems, own - systems);
}

IDispatch* MakeEntry(const wchar_t* path) {
  const HMODULE module = ::LoadLibraryW(path);
  if (module == nullptr) return nullptr;
  using Function = HRESULT WINAPI(REFCLSID, REFIID, void**);
  auto* const getClassObject = reinterpret_cast<Function*>(
      reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
  IClassFactory* factory = nullptr;
  void* made = nullptr;
  if (FAILED(getClassObject(CLSID_Entry, IID_IClassFactory, reinterpret_cast<void**>(&factory)))) {
    return nullptr;
  }
  factory->CreateInstance(nullptr, IID_IDispatch, &made);
  factory->Release();
  return static_cast<IDispatch*>(made);
}

IDispatch* MakeDictionary() {
  CLSID type{};
  void* made = nullptr;
  if (FAILED(::CLSIDFromProgID(L"Scripting.Dictionary", &type))) return nullptr;
  ::CoCreateInstance(type, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made);
  return static_cast<IDispatch*>(made);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: late_bound_bench path-of-NorvoPlayList.dll\n");
    return 2;
  }
  const std::string path(arguments[1]);
  ::CoInitialize(nullptr);
  IDispatch* const entry = MakeEntry(std::wstring(path.begin(), path.end()).c_str());
  IDispatch* const dictionary = MakeDictionary();
  if (entry == nullptr || dictionary == nullptr) {
    std::fprintf(stderr, "no objects to measure\n");
    return 1;
  }
  Property own(entry, L"NativeFormat"), systems(dictionary, L"CompareMode");
  if (!own.IsKnown() || !systems.IsKnown()) return 1;
  Compare("put", Measure([&] { return own.Put(1); }), Measure([&] { return systems.Put(1); }));
  Compare("get", Measure([&] { return own.Get(); }), Measure([&] { return systems.Get(); }));
  entry->Release();
  dictionary->Release();
  ::CoUninitialize();
}

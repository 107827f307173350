#include "com/Registration.h"

#include <olectl.h>

#include <array>
#include <vector>

#include "automation/RunTimeError.h"
#include "com/ComPointer.h"
#include "com/ErrorInfo.h"
#include "com/Faces.h"
#include "com/NorvoPlayList.h"
#include "platform/windows/ModulePath.h"
#include "platform/windows/WideText.h"

namespace norvo::com {
namespace {

constexpr StringView kClasses = u"Software\\Classes\\";
constexpr StringView kLibrary = u"NorvoPlayList";
constexpr StringView kVersion = u"1.0";
// The system's own marshaller for interfaces that a type library describes.
constexpr StringView kMarshaller = u"{00020424-0000-0000-C000-000000000046}";
// What the classes, interfaces and type libraries of all products stand below. A user may have
// none of them yet.
constexpr StringView kCommonKeys[] = {u"CLSID", u"Interface", u"TypeLib"};
constexpr StringView kPlatform = sizeof(void*) == 8 ? u"win64" : u"win32";
constexpr StringView kOtherPlatform = sizeof(void*) == 8 ? u"win32" : u"win64";

String TextOf(const GUID& identifier) {
  std::array<wchar_t, 64> text{};
  ::StringFromGUID2(identifier, text.data(), static_cast<int>(text.size()));
  return FromWide(text.data());
}

struct Entry {
  String key;  // below the classes
  String name;
  String value;
};

/// The values that make the library known, and the keys that go, with all that is below them, when
/// it is not to be known any more.
struct Plan {
  std::vector<String> own;     // of this bitness
  std::vector<String> shared;  // with the library of the other one
  String other;                // is there while that one is registered
  String notes;                // key for what else is to be known when all goes
  std::vector<Entry> entries;

  void Add(String key, StringView value, StringView name = {}) {
    entries.push_back({std::move(key), String(name), String(value)});
  }
};

void PlanClass(Plan& plan, const PublicClass& described, const String& module,
               const String& library) {
  const String name = String(kLibrary) + u'.' + String(described.name);
  const String identifier = TextOf(described.identifier);
  const String key = u"CLSID\\" + identifier;
  plan.shared.push_back(name);
  plan.own.push_back(key);
  plan.Add(name, name);
  plan.Add(name + u"\\CLSID", identifier);
  plan.Add(key, name);
  plan.Add(key + u"\\ProgID", name);
  plan.Add(key + u"\\InprocServer32", module);
  plan.Add(key + u"\\InprocServer32", u"Apartment", u"ThreadingModel");
  plan.Add(key + u"\\Programmable", {});
  plan.Add(key + u"\\TypeLib", library);
  plan.Add(key + u"\\Version", kVersion);
}

void PlanInterface(Plan& plan, ITypeInfo& type, const TYPEATTR& attributes, const String& library) {
  const String key = u"Interface\\" + TextOf(attributes.guid);
  BSTR name = nullptr;
  if (FAILED(type.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) return;
  plan.own.push_back(key);
  plan.Add(key, FromWide(name));
  ::SysFreeString(name);
  plan.Add(key + u"\\ProxyStubClsid32", kMarshaller);
  plan.Add(key + u"\\TypeLib", library);
  plan.Add(key + u"\\TypeLib", kVersion, u"Version");
}

void PlanInterfaces(Plan& plan, ITypeLib& library, const String& identifier) {
  for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
    ComPointer<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    if (FAILED(library.GetTypeInfo(i, type.Receive()))) continue;
    if (FAILED(type->GetTypeAttr(&attributes))) continue;
    if (attributes->typekind == TKIND_DISPATCH) {
      PlanInterface(plan, *type.Get(), *attributes, identifier);
    }
    type->ReleaseTypeAttr(attributes);
  }
}

void PlanLibrary(Plan& plan, const String& module, const String& identifier) {
  const String key = u"TypeLib\\" + identifier;
  const String version = key + u'\\' + String(kVersion);
  const String files = version + u"\\0\\";
  plan.own.push_back(files + String(kPlatform));
  plan.other = files + String(kOtherPlatform);
  plan.shared.push_back(key);
  plan.notes = key;
  plan.Add(version, u"Norvo Media Playlist Parser");
  plan.Add(version + u"\\FLAGS", u"0");
  plan.Add(files + String(kPlatform), module);
  plan.Add(version + u"\\HELPDIR", module.substr(0, module.rfind(u'\\')));
}

Plan MakePlan() {
  const String module = ModulePath();
  const String library = TextOf(LIBID_NorvoPlayList);
  Plan plan;
  for (const PublicClass& each : PublicClasses()) PlanClass(plan, each, module, library);
  PlanLibrary(plan, module, library);
  ComPointer<ITypeLib> types;
  const HRESULT status = ::LoadTypeLibEx(ToWide(module), REGKIND_NONE, types.Receive());
  if (FAILED(status)) throw ErrorOf(status);
  PlanInterfaces(plan, *types.Get(), library);
  return plan;
}

HKEY RootFor(RegisteredFor whom) {
  return whom == RegisteredFor::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

LSTATUS Write(HKEY root, const Entry& entry) {
  const String key = String(kClasses) + entry.key;
  const auto bytes = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
  HKEY opened = nullptr;
  LSTATUS status =
      ::RegCreateKeyExW(root, ToWide(key), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened, nullptr);
  if (status != ERROR_SUCCESS) return status;
  status = ::RegSetValueExW(opened, entry.name.empty() ? nullptr : ToWide(entry.name), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(entry.value.c_str()), bytes);
  ::RegCloseKey(opened);
  return status;
}

bool Exists(HKEY root, const String& key) {
  HKEY opened = nullptr;
  const String path = String(kClasses) + key;
  if (::RegOpenKeyExW(root, ToWide(path), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) {
    return false;
  }
  ::RegCloseKey(opened);
  return true;
}

bool RemoveAll(HKEY root, const std::vector<String>& keys) {
  bool whole = true;
  for (const String& key : keys) {
    const LSTATUS status = ::RegDeleteTreeW(root, ToWide(String(kClasses) + key));
    whole = whole && (status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND);
  }
  return whole;
}

/// Name of the value that tells that a common key was made by the registering. Each bitness has
/// classes and interfaces of its own.
String NoteOf(StringView commonKey) {
  const bool isShared = commonKey == u"TypeLib";
  return u"Made " + String(commonKey) + (isShared ? String() : u' ' + String(kPlatform));
}

bool HasNote(HKEY root, const Plan& plan, StringView commonKey) {
  return ::RegGetValueW(root, ToWide(String(kClasses) + plan.notes), ToWide(NoteOf(commonKey)),
                        RRF_RT_REG_SZ, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

/// The common keys that fit.
template <class Fits>
std::vector<String> CommonKeys(Fits&& fits) {
  std::vector<String> keys;
  for (const StringView key : kCommonKeys) {
    if (fits(String(key))) keys.emplace_back(key);
  }
  return keys;
}

bool IsEmpty(HKEY key) {
  DWORD keys = 1, values = 1;
  return ::RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                            nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
         keys == 0 && values == 0;
}

void RemoveIfEmpty(HKEY root, const String& key) {
  const String path = String(kClasses) + key;
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(root, ToWide(path), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) return;
  const bool isEmpty = IsEmpty(opened);
  ::RegCloseKey(opened);
  if (isEmpty) ::RegDeleteKeyW(root, ToWide(path));
}

/// `made` are the common keys that go with the last that stands in them.
HRESULT Remove(HKEY root, const Plan& plan, const std::vector<String>& made) {
  bool whole = RemoveAll(root, plan.own);
  if (!Exists(root, plan.other)) whole = RemoveAll(root, plan.shared) && whole;
  for (const String& key : made) RemoveIfEmpty(root, key);
  return whole ? S_OK : SELFREG_E_CLASS;
}

HRESULT WriteAll(HKEY root, Plan plan) {
  const std::vector<String> made =
      CommonKeys([root](const String& key) { return !Exists(root, key); });
  for (const String& key : made) plan.Add(plan.notes, {}, NoteOf(key));
  for (const Entry& entry : plan.entries) {
    if (Write(root, entry) == ERROR_SUCCESS) continue;
    Remove(root, plan, made);
    return SELFREG_E_CLASS;
  }
  return S_OK;
}

template <class Work>
HRESULT Shielded(Work&& work) {
  try {
    return Guarded(work);
  } catch (const RunTimeError& failure) {
    return StatusOf(failure);
  }
}

}  // namespace

HRESULT Register(RegisteredFor whom) {
  return Shielded([whom] { return WriteAll(RootFor(whom), MakePlan()); });
}

HRESULT Unregister(RegisteredFor whom) {
  return Shielded([root = RootFor(whom)] {
    const Plan plan = MakePlan();
    return Remove(root, plan,
                  CommonKeys([&](const String& key) { return HasNote(root, plan, key); }));
  });
}

}  // namespace norvo::com

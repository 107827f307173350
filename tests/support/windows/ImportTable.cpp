#include "support/windows/ImportTable.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace norvo {
namespace {

/// What stands at an offset of this program's image.
template <class What>
What* InImage(Address offset) {
  return reinterpret_cast<What*>(reinterpret_cast<Address>(::GetModuleHandleW(nullptr)) + offset);
}

/// The place in the import table from which this program calls the function; null when it never
/// calls it.
Address* ImportOf(const std::string& name) {
  const auto& start = *InImage<IMAGE_DOS_HEADER>(0);
  const auto& image = *InImage<IMAGE_NT_HEADERS>(static_cast<Address>(start.e_lfanew));
  const auto& imports = image.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  auto* library = InImage<IMAGE_IMPORT_DESCRIPTOR>(imports.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* named = InImage<IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
    auto* called = InImage<IMAGE_THUNK_DATA>(library->FirstThunk);
    for (; named->u1.AddressOfData != 0; ++named, ++called) {
      if (IMAGE_SNAP_BY_ORDINAL(named->u1.Ordinal)) continue;
      const auto* import = InImage<IMAGE_IMPORT_BY_NAME>(named->u1.AddressOfData);
      if (name == import->Name) return &called->u1.Function;
    }
  }
  return nullptr;
}

}  // namespace

Address ExchangeImport(const char* name, Address function) {
  Address* const place = ImportOf(name);
  if (place == nullptr) throw std::logic_error(std::string("this program never calls ") + name);
  DWORD protection = 0;
  ::VirtualProtect(place, sizeof(*place), PAGE_READWRITE, &protection);
  const Address before = std::exchange(*place, function);
  ::VirtualProtect(place, sizeof(*place), protection, &protection);
  return before;
}

}  // namespace norvo

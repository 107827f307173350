#include "platform/windows/WindowsRegistry.h"

#include <windows.h>

#include <bit>
#include <cstring>
#include <limits>
#include <string>

#include "platform/windows/UniqueHandle.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsError.h"

namespace norvo {
namespace {

static_assert(std::endian::native == std::endian::little, "the registry's numbers are");

HKEY RootOf(Hive hive) {
  switch (hive) {
    case Hive::CurrentUser:
      return HKEY_CURRENT_USER;
    case Hive::LocalMachine:
      return HKEY_LOCAL_MACHINE;
    case Hive::ClassesRoot:
      return HKEY_CLASSES_ROOT;
  }
  return nullptr;
}

bool HoldsNul(StringView text) {
  return text.find(u'\0') != StringView::npos;
}

String WithoutLastSeparator(StringView key) {
  if (key.ends_with(u'\\')) key.remove_suffix(1);
  return String(key);
}

/// Not open when the key is missing or may not be used in this way; `status` tells why.
RegistryHandle OpenKey(Hive hive, StringView key, REGSAM access, LSTATUS& status) {
  HKEY found = nullptr;
  status = ERROR_FILE_NOT_FOUND;
  if (HoldsNul(key)) return {};
  status = ::RegOpenKeyExW(RootOf(hive), ToWide(WithoutLastSeparator(key)), 0, access, &found);
  return status == ERROR_SUCCESS ? RegistryHandle(found) : RegistryHandle();
}

/// Raises for a status that does not tell what there is.
void CheckStatus(LSTATUS status, StringView key) {
  RaiseIfUntold(static_cast<std::uint32_t>(status), Subject::File, key);
}

/// Not open when the key is missing or may not be read.
RegistryHandle FindKey(Hive hive, StringView key) {
  LSTATUS status = ERROR_SUCCESS;
  RegistryHandle opened = OpenKey(hive, key, KEY_QUERY_VALUE, status);
  CheckStatus(status, key);
  return opened;
}

struct RawValue {
  DWORD type = REG_NONE;
  std::string bytes;
};

/// Nothing, with the reason in `status`, for a value that is missing or may not be read.
std::optional<RawValue> ReadRaw(const RegistryHandle& key, const String& name, LSTATUS& status) {
  RawValue value;
  for (;;) {
    auto size = static_cast<DWORD>(value.bytes.size());
    auto* const data = reinterpret_cast<BYTE*>(value.bytes.data());
    status = ::RegQueryValueExW(key.Get(), ToWide(name), nullptr, &value.type, data, &size);
    const bool fits = size <= value.bytes.size();
    value.bytes.resize(size);
    if (status == ERROR_SUCCESS && fits) return value;
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) return std::nullopt;
  }
}

template <class Number>
std::optional<RegistryValue> NumberFrom(const std::string& bytes) {
  Number number = 0;
  if (bytes.size() != sizeof(number)) return std::nullopt;
  std::memcpy(&number, bytes.data(), sizeof(number));
  return number;
}

String TextFrom(const std::string& bytes) {
  String text(bytes.size() / sizeof(char16_t), u'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
  return String(BeforeNul(text));
}

template <class Number>
RawValue RawNumber(DWORD type, Number number) {
  RawValue raw{type, std::string(sizeof(number), '\0')};
  std::memcpy(raw.bytes.data(), &number, sizeof(number));
  return raw;
}

RawValue ToRaw(const RegistryValue& value) {
  if (const auto* const number = std::get_if<std::int32_t>(&value)) {
    return RawNumber(REG_DWORD, *number);
  }
  if (const auto* const number = std::get_if<double>(&value)) {
    return RawNumber(REG_BINARY, *number);
  }
  const String text(BeforeNul(std::get<String>(value)));
  // The NUL behind the text is part of the value.
  const std::size_t size = (text.size() + 1) * sizeof(char16_t);
  return {REG_SZ, std::string(reinterpret_cast<const char*>(text.c_str()), size)};
}

}  // namespace

bool WindowsRegistry::KeyExists(Hive hive, StringView key) {
  return FindKey(hive, key).IsOpen();
}

std::optional<RegistryValue> WindowsRegistry::Read(Hive hive, StringView key, StringView name) {
  const RegistryHandle opened = FindKey(hive, key);
  if (!opened.IsOpen() || HoldsNul(name)) return std::nullopt;
  LSTATUS status = ERROR_SUCCESS;
  const std::optional<RawValue> raw = ReadRaw(opened, String(name), status);
  CheckStatus(status, key);
  if (!raw) return std::nullopt;
  switch (raw->type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
      return TextFrom(raw->bytes);
    case REG_DWORD:
      return NumberFrom<std::int32_t>(raw->bytes);
    case REG_BINARY:
      return NumberFrom<double>(raw->bytes);
    default:
      return std::nullopt;
  }
}

bool WindowsRegistry::Write(Hive hive, StringView key, StringView name,
                            const RegistryValue& value) {
  LSTATUS status = ERROR_SUCCESS;
  const RegistryHandle opened = OpenKey(hive, key, KEY_SET_VALUE, status);
  if (!opened.IsOpen() || HoldsNul(name)) return false;
  const RawValue raw = ToRaw(value);
  if (raw.bytes.size() > std::numeric_limits<DWORD>::max()) return false;
  return ::RegSetValueExW(opened.Get(), ToWide(String(name)), 0, raw.type,
                          reinterpret_cast<const BYTE*>(raw.bytes.data()),
                          static_cast<DWORD>(raw.bytes.size())) == ERROR_SUCCESS;
}

bool WindowsRegistry::CreateKey(Hive hive, StringView key) {
  HKEY created = nullptr;
  if (HoldsNul(key)) return false;
  const LSTATUS status = ::RegCreateKeyExW(RootOf(hive), ToWide(WithoutLastSeparator(key)), 0,
                                           nullptr, 0, KEY_QUERY_VALUE, nullptr, &created, nullptr);
  if (status != ERROR_SUCCESS) return false;
  const RegistryHandle closing(created);
  return true;
}

}  // namespace norvo

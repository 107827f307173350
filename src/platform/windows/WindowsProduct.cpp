#include "platform/windows/WindowsProduct.h"

#include "platform/windows/ModulePath.h"
#include "services/Utility.h"
#include "text/WindowsPath.h"

namespace norvo {

String WindowsProduct::BaseKey() {
  return u"SOFTWARE\\Norvo\\Migration";
}

String WindowsProduct::Value(StringView name) {
  RegistryKey key(registry_);
  String value;
  if (key.Open(BaseKey())) key.Read(name, value);
  return value;
}

String WindowsProduct::Folder() {
  const String folder = Value(u"ProductFolder");
  if (!folder.empty()) return Utility::AddBackslash(folder);
  return Utility::AddBackslash(ParentFolder(ModulePath()));
}

String WindowsProduct::Name() {
  return Value(u"ProductName");
}

}  // namespace norvo

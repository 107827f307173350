#include "platform/windows/WindowsProduct.h"

#include "platform/windows/ModulePath.h"
#include "services/Utility.h"
#include "text/WindowsPath.h"

namespace norvo {

String WindowsProduct::BaseKey() {
  return String(product_values::kBaseKey);
}

String WindowsProduct::Folder() {
  const String folder = ReadText(registry_, product_values::kBaseKey, product_values::kFolder);
  if (!folder.empty()) return Utility::AddBackslash(folder);
  return Utility::AddBackslash(ParentFolder(ModulePath()));
}

String WindowsProduct::Name() {
  return ReadText(registry_, product_values::kBaseKey, product_values::kName);
}

}  // namespace norvo

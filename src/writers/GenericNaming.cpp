#include "writers/GenericNaming.h"

namespace norvo {

String PlayListToIni(StringView fileName) {
  const std::size_t point = fileName.rfind(u'.');
  if (point == StringView::npos) return String(fileName) + u".ini";
  return String(fileName.substr(0, point + 1)) + u"ini";
}

}  // namespace norvo

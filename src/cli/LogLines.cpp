#include "cli/LogLines.h"

#include <algorithm>

namespace norvo {
namespace {

// Starts of the lines that tell of undone work.
constexpr StringView kWarnings[] = {
    u"HelperMan::", u"NVServices::", u" NVServices::",
    u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, The media list could not be written"};

}  // namespace

bool IsWarning(StringView logLine) {
  return std::any_of(std::begin(kWarnings), std::end(kWarnings),
                     [logLine](StringView start) { return logLine.starts_with(start); });
}

}  // namespace norvo

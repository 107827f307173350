#include "writers/NativeNaming.h"

#include "automation/RunTimeError.h"
#include "model/PlaylistTypes.h"
#include "services/DataCop.h"
#include "services/NVServices.h"
#include "services/Utility.h"
#include "text/Number.h"

namespace norvo {

String GetNewPlayListPath(Component& component, StringView fileName, std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  const StringView extension = row == nullptr ? StringView() : row->extension;
  const String root = DataCop::GetSubNamePath(component, DataCop::kPlayListSlot);
  if (root.empty()) return {};
  const std::size_t point = fileName.find(u'.');
  if (point == StringView::npos) throw RunTimeError(error::kInvalidArgument);
  String base(fileName.substr(0, point));
  Utility::CleanString(base);
  const String folder = root + String(row == nullptr ? StringView() : row->playerFolder);
  NVServices::CreatePath(component, folder);
  const auto candidate = [&] { return folder + u"\\" + base + String(extension); };
  for (std::int32_t counter = 1; NVServices::DoesFileExist(component, candidate()); ++counter) {
    base += FormatInteger(counter);  // the numbers pile up: intended
  }
  return candidate();
}

}  // namespace norvo

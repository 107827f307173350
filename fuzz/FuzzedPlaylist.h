#pragma once

#include <memory>

#include "Fuzzing.h"
#include "automation/RunTimeError.h"
#include "library/Library.h"
#include "support/MemoryPlatform.h"

namespace norvo {

/// Reads the input as a playlist of one type, on a machine that has one song, and writes its
/// generic file. Ends the program when a result makes no sense.
inline void ReadFuzzedPlaylist(std::int32_t type, StringView name, std::string_view bytes) {
  const auto platform = std::make_shared<MemoryPlatform>();
  platform->ConfigureProduct();
  platform->AddFile(u"C:\\Music\\a.mp3", "ID3");
  const String path = u"C:\\Music\\" + String(name);
  platform->AddFile(path, bytes);
  const auto component = OpenLibrary(platform);
  component->PinGroupRoot(String(kGroupRoot));  // as a move does; else each entry asks the registry
  const ObjectRef playlist = component->Create(u"PlayList");
  playlist->Let(u"PlayListType", type);
  Variant argument = path;
  playlist->Call(u"ReadPlayList", Arguments(&argument, 1));
  if (std::get<String>(argument) != path) std::abort();
  argument = String(u"a.m3u");
  const bool written = std::get<bool>(playlist->Call(u"WriteGeneric", Arguments(&argument, 1)));
  const ObjectRef entries = std::get<ObjectRef>(playlist->Get(u"PlayListEntries"));
  const std::int32_t total = std::get<std::int32_t>(entries->Get(u"TotalSongs"));
  if (written && total == 0) std::abort();
}

}  // namespace norvo

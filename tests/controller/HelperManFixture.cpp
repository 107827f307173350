#include "controller/HelperManFixture.h"

#include "automation/Conversions.h"
#include "readers/PlaylistFixture.h"

namespace norvo {

void AddSamplePlaylists(MemoryPlatform& platform) {
  platform.AddFile(u"C:\\Music\\One.mp3", MediaWithOldTag("Song One", "Some Artist", "Some Album"));
  platform.AddFile(u"C:\\Music\\Two.mp3", UntaggedMedia());
  const Lines asx = {"<Asx Version=\"3.0\">",
                     "<Title>Best of</Title>",
                     "<Author>Me</Author>",
                     "<Param Name=\"AllowShuffle\" Value=\"yes\" />",
                     "<Entry>",
                     "<Title>Song One</Title>",
                     "<Author>Writer</Author>",
                     "<Ref Href=\"C:\\Music\\One.mp3\" />",
                     "<Duration value=\"00:03:35.000\" />",
                     "<Param Name=\"Artist\" Value=\"Some Artist\" />",
                     "<Param Name=\"Bitrate\" Value=\"128000\" />",
                     "</Entry>",
                     "</Asx>"};
  platform.AddFile(u"C:\\Music\\Best.m3u.asx", TextOf(asx));
  platform.AddFile(u"C:\\Music\\Window.m3u", TextOf(asx));
  platform.AddFile(
      u"C:\\Music\\Road Trip.m3u",
      TextOf({"#EXTM3U", "#EXTINF:215,Some Artist - Song One", "C:\\Music\\One.mp3", "Two.mp3"}));
  const Lines pls = {"[playlist]",  "File1=C:\\Music\\One.mp3", "Title1=Some Artist - Song One",
                     "Length1=215", "File2=http://host/live",   "NumberOfEntries=2"};
  platform.AddFile(u"C:\\Music\\Amp.pls", TextOf(pls) + "Version=2\r\n");
  platform.AddFile(u"C:\\Music\\Sonic.pls", TextOf(pls) + "CachedInfo=1\r\n");
  platform.AddFile(u"C:\\Music\\Jukebox.m3u",
                   TextOf({"C:\\Music\\One.mp3", "C:\\Music\\gone.mp3", "C:\\Music\\Two.mp3"}));
}

std::map<String, std::string> GenericFiles(const MemoryPlatform& platform) {
  std::map<String, std::string> files;
  auto& disk = const_cast<MemoryPlatform&>(platform).Files();
  for (const String& path : disk.AllFiles()) {
    if (EndsWithIgnoreCase(path, u".ini")) files[path] = platform.Bytes(path);
  }
  return files;
}

bool GenericQueue(const ObjectRef& controller, std::int32_t mode) {
  return ToBoolean(CallWith(controller, u"GenericQueue", mode));
}

bool GetAllPlaylists(const ObjectRef& controller) {
  return ToBoolean(controller->Call(u"GetAllPlaylists"));
}

Lines GetPLSList(const ObjectRef& controller) {
  return Utf8(*std::get<StringArray>(controller->Call(u"GetPLSList")));
}

const ObjectRef& HelperManFixture::Controller() {
  if (!controller_) controller_ = NewController();
  return controller_;
}

void HelperManFixture::AddList(const Lines& lines) {
  platform->AddFile(kListFile, "[" + Utf8(kGroupRoot) + "]\r\n" + TextOf(lines));
}

}  // namespace norvo

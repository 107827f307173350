// Reads one playlist of a machine that a folder holds, and prints its entries:
//   print_playlist /mnt/old-pc 'C:\Music\Mix.m3u'
#include <norvo/automation/Conversions.h>
#include <norvo/library/Library.h>
#include <norvo/platform/hosted/HostedPlatform.h>

#include <iostream>

void PrintEntry(int number, norvo::AutomationObject& entry) {
  std::cout << number << "  " << norvo::ToUtf8Text(entry.Get("Entry_ArtistName")) << " - "
            << norvo::ToUtf8Text(entry.Get("Entry_SongName")) << "  "
            << norvo::ToUtf8Text(entry.Get("Entry_SourceURL")) << '\n';
}

int PrintPlaylist(const std::string& folder, const std::string& path) {
  const auto library = norvo::OpenLibrary(std::make_shared<norvo::HostedPlatform>(folder));
  const norvo::ObjectRef manager = library->Create("helperMan");
  const norvo::ObjectRef playlist = library->Create("PlayList");
  const char* const parse = path.ends_with(".pls") ? "ParsePLSHeader" : "ParseM3UHeader";
  playlist->Let("PlayListType", manager->Call(parse, path));
  const bool whole = norvo::ToBoolean(playlist->Call("ReadPlayList", path));

  const norvo::ObjectRef entries = norvo::ToObject(playlist->Get("PlayListEntries"));
  const int count = norvo::ToInt32(entries->Get("TotalSongs"));
  for (int i = 1; i <= count; ++i) PrintEntry(i, *norvo::ToObject(entries->Call("Item", i)));
  if (count == 0) std::cerr << "No entry was kept. Has the machine the product's settings?\n";
  return whole && count > 0 ? 0 : 1;
}

int main(int argc, char** argv) {
  try {
    if (argc == 3) return PrintPlaylist(argv[1], argv[2]);
    std::cerr << "usage: print_playlist MACHINE-FOLDER PLAYLIST\n";
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
  }
  return 2;
}

// Measures the parts that every entry of a playlist passes through, one by one.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "library/Library.h"
#include "model/AsxEntry.h"
#include "platform/hosted/HostedPlatform.h"
#include "readers/AsxLineParser.h"
#include "readers/ExtendedInfo.h"
#include "readers/M3uReader.h"
#include "readers/TextLines.h"
#include "services/DataCop.h"
#include "services/IniDocument.h"
#include "services/Utility.h"
#include "tags/Mp3TagReader.h"
#include "text/CodePage.h"
#include "text/Wildcard.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

std::string Frame(const std::string& id, const std::string& text) {
  std::string frame = id + std::string("\0\0\0", 3);
  frame += static_cast<char>(text.size() + 1);
  return frame + std::string("\0\0\0", 3) + text;
}

std::string TaggedFile() {
  std::string bytes("ID3\x03\0\0\0\0\x07\x76", 10);
  bytes += Frame("TIT2", "A Song With A Name") + Frame("TPE1", "Some Artist") +
           Frame("TALB", "Their Greatest Hits") + Frame("TRCK", "7") + Frame("TLEN", "215500");
  bytes.resize(8192, '\0');
  return bytes;
}

/// A machine with one tagged song and the product's settings.
class OneSong {
 public:
  OneSong() : folder_(NewFolder()) {
    fs::create_directories(folder_ / "C/Music");
    std::ofstream(folder_ / "C/Music/Song.mp3", std::ios::binary) << TaggedFile();
    std::ofstream(folder_ / "registry.reg", std::ios::binary)
        << "Windows Registry Editor Version 5.00\r\n\r\n"
           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS\\KVMediaPlayLists]\r\n"
           "\"SubGroupRootName\"=\"C:\\\\Media\\\\\"\r\n";
    component_ = OpenLibrary(std::make_shared<HostedPlatform>(folder_));
  }
  ~OneSong() {
    component_.reset();
    fs::remove_all(folder_);
  }
  Component& Library() { return *component_; }
  static String Path() { return u"C:\\Music\\Song.mp3"; }

 private:
  static fs::path NewFolder() {
    std::string name = (fs::temp_directory_path() / "norvo-bench-XXXXXX").string();
    return ::mkdtemp(name.data());
  }

  fs::path folder_;
  std::unique_ptr<Component> component_;
};

String M3uText(int items) {
  String text = u"#EXTM3U\r\n";
  for (int i = 0; i < items; ++i) {
    text += u"#EXTINF:215,Some Artist - A Song With A Name\r\nC:\\Music\\Album\\Song.mp3\r\n";
  }
  return text;
}

void MatchPattern(benchmark::State& state) {
  const String line = u"    <Param Name = \"Artist\" Value = \"Some Artist\" />";
  for (auto _ : state) {
    benchmark::DoNotOptimize(Matches(line, u"*<Param Name*", Compare::Text));
  }
}
BENCHMARK(MatchPattern);

void ClassifyAsxLine(benchmark::State& state) {
  const String line = u"    <Param Name = \"Artist\" Value = \"Some Artist\" />";
  for (auto _ : state) benchmark::DoNotOptimize(KindInsideEntry(line));
}
BENCHMARK(ClassifyAsxLine);

void DecodeCodePage(benchmark::State& state) {
  const std::string bytes(static_cast<std::size_t>(state.range(0)), '\xE4');
  for (auto _ : state) benchmark::DoNotOptimize(Windows1252().Decode(bytes));
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(DecodeCodePage)->Arg(64)->Arg(65536);

void CleanName(benchmark::State& state) {
  for (auto _ : state) {
    String name = u"Some_Artist - A Song (With A Name), live!";
    benchmark::DoNotOptimize(Utility::CleanString(name));
  }
}
BENCHMARK(CleanName);

void SplitM3uText(benchmark::State& state) {
  const String text = M3uText(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    bool complete = false;
    benchmark::DoNotOptimize(SplitM3u(SplitLines(text), complete));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SplitM3uText)->Arg(100)->Arg(10000);

void BuildIniDocument(benchmark::State& state) {
  for (auto _ : state) {
    IniDocument document;
    for (int i = 0; i < state.range(0); ++i) {
      const std::size_t section = document.FindOrAddSection(u"Section " + String(1, char16_t(i)));
      for (const char16_t* key : {u"Artist", u"Album", u"FileName", u"SongName", u"URLType"}) {
        document.SetValue(section, key, u"A value of ordinary length");
      }
    }
    benchmark::DoNotOptimize(document.ToText());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BuildIniDocument)->Arg(100)->Arg(10000);

void GetPropertyByName(benchmark::State& state) {
  OneSong song;
  const ObjectRef entry = song.Library().Create(u"M3UEntry");
  entry->Let(u"Entry_Genre", String(u"Rock"));
  for (auto _ : state) benchmark::DoNotOptimize(entry->Get(u"Entry_Genre"));
}
BENCHMARK(GetPropertyByName);

void JudgeReference(benchmark::State& state) {
  OneSong song;
  for (auto _ : state) {
    String reference = OneSong::Path();
    std::int32_t type = 0;
    benchmark::DoNotOptimize(DataCop::GetGenValue(song.Library(), reference, u"C:\\Music\\", type));
  }
}
BENCHMARK(JudgeReference);

void ReadTag(benchmark::State& state) {
  OneSong song;
  Mp3TagReader reader(song.Library());
  for (auto _ : state) benchmark::DoNotOptimize(reader.ReadFile(OneSong::Path()));
}
BENCHMARK(ReadTag);

void FillExtendedInfo(benchmark::State& state) {
  OneSong song;
  String buffer;
  for (auto _ : state) {
    M3UEntry entry(song.Library());
    benchmark::DoNotOptimize(ReadExtendedInfo(u"#EXTINF:215,Some Artist - A Song With A Name",
                                              entry, playlist_type::kWinampM3u, buffer));
  }
}
BENCHMARK(FillExtendedInfo);

}  // namespace
}  // namespace norvo

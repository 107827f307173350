#include "move/StockTaking.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>

#include "automation/Attempt.h"
#include "controller/ScanRules.h"
#include "lists/ListKinds.h"
#include "lists/ListMarks.h"
#include "lists/SongNames.h"
#include "services/FolderWalk.h"
#include "services/Utility.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// As much as tells what a file is.
constexpr std::size_t kBeginning = 512;

// Endings of files that are no lists, whatever they begin with: what a PC has thousands of.
constexpr StringView kOtherEndings[] = {
    u"7z",  u"ani", u"asp",   u"ax",       u"bat", u"bin",    u"bmp",  u"c",    u"cab",  u"cat",
    u"cdf", u"chm", u"class", u"cmd",      u"com", u"cpl",    u"cpp",  u"cs",   u"css",  u"cur",
    u"dat", u"db",  u"dll",   u"dmp",      u"doc", u"docx",   u"drv",  u"etl",  u"evt",  u"evtx",
    u"exe", u"fon", u"gif",   u"gz",       u"h",   u"hlp",    u"hpp",  u"htm",  u"html", u"icm",
    u"ico", u"img", u"inf",   u"ini",      u"iso", u"jar",    u"jpeg", u"jpg",  u"js",   u"json",
    u"lib", u"lnk", u"man",   u"manifest", u"mdb", u"msc",    u"msi",  u"msp",  u"mui",  u"nls",
    u"o",   u"obj", u"ocx",   u"odt",      u"otf", u"pdb",    u"pdf",  u"pf",   u"php",  u"png",
    u"pnf", u"ppt", u"pptx",  u"prx",      u"ps1", u"psd",    u"pst",  u"py",   u"pyc",  u"rar",
    u"reg", u"rtf", u"scr",   u"sdb",      u"so",  u"sqlite", u"sys",  u"tar",  u"tif",  u"tiff",
    u"tlb", u"ttc", u"ttf",   u"vbs",      u"vxd", u"wmf",    u"xls",  u"xlsx", u"zip"};

bool HasOtherEnding(StringView name) {
  String ending(Utility::GetExtension(name));
  if (ending.empty()) return false;
  std::transform(ending.begin(), ending.end(), ending.begin(), ToLowerAscii);
  return std::find(std::begin(kOtherEndings), std::end(kOtherEndings), ending) !=
         std::end(kOtherEndings);
}

/// Films of discs are called so, and half of what a PC keeps for itself.
bool IsMusic(StringView name) {
  return HasSongExtension(name) && !EqualsIgnoreCase(Utility::GetExtension(name), u"dat");
}

/// The system's own sounds are no music of anybody's. Old systems keep people's folders there, too.
bool IsOfSystem(StringView folder) {
  constexpr StringView kTops[] = {u"Windows", u"WINNT"};
  constexpr StringView kOwn[] = {u"assembly",
                                 u"Cursors",
                                 u"diagnostics",
                                 u"Help",
                                 u"ImmersiveControlPanel",
                                 u"Installer",
                                 u"Media",
                                 u"Resources",
                                 u"ServicePackFiles",
                                 u"servicing",
                                 u"Speech",
                                 u"SystemApps",
                                 u"SystemResources",
                                 u"System",
                                 u"System32",
                                 u"SysWOW64",
                                 u"Web",
                                 u"WinSxS"};
  const std::vector<StringView> names = Split(folder, u'\\');
  if (names.size() < 3) return false;
  const auto isOne = [](StringView name, std::span<const StringView> of) {
    return std::any_of(of.begin(), of.end(),
                       [name](StringView each) { return EqualsIgnoreCase(name, each); });
  };
  return isOne(names[1], kTops) && isOne(names[2], kOwn);
}

MovedPlaylist::SkipRule RuleOf(SkippedFolder folder) {
  switch (folder) {
    case SkippedFolder::None:
      break;
    case SkippedFolder::SystemVolume:
      return MovedPlaylist::SkipRule::SystemFolder;
    case SkippedFolder::RecycleBin:
      return MovedPlaylist::SkipRule::RecycleBin;
    case SkippedFolder::TemporaryInternetFiles:
      return MovedPlaylist::SkipRule::TemporaryInternetFiles;
  }
  return MovedPlaylist::SkipRule::None;
}

class StockTaker final : public FolderVisitor {
  using Rule = MovedPlaylist::SkipRule;

 public:
  StockTaker(Component& library, TextPool& texts, WorkReport& report)
      : library_(library), texts_(texts), report_(report) {}

  bool EnterFolder(StringView folder) override {
    report_.Progress({WorkPhase::TakingStock, ++folders_, 0, 0, 0, folder});
    rule_ = Rule::None;
    for (const StringView name : Split(folder, u'\\')) {
      if (rule_ == Rule::None) rule_ = RuleOf(SkippedFolderOf(name));
    }
    isOfSystem_ = IsOfSystem(folder);
    return true;
  }

  /// Points and blanks at the end of a name do not count on Windows.
  void VisitFile(StringView folder, StringView written) override {
    const StringView name = WithoutTrail(written);
    const String path = String(folder) + String(name);
    if (const ListKind* const kind = KindOf(path)) {
      AddList(path, kind->name, kind->syntax.has_value());
    } else if (IsMusic(name)) {
      AddMedia(path);
    } else if (!HasOtherEnding(name) && BeginsAsList(path)) {
      AddList(path, "playlist with a name of its own", true);
    }
  }

  void CannotList(StringView folder, const RunTimeError& failure) override {
    if (rule_ != Rule::None) return;
    constexpr StringView kRoot = u"C:\\";
    const StringView bare =
        folder.size() == kRoot.size() ? folder : folder.substr(0, folder.size() - 1);
    stock_.unseen.push_back({String(bare), failure.Description()});
  }

  Stock Take() && { return std::move(stock_); }

 private:
  void AddList(const String& path, const char* kind, bool isRead) {
    stock_.lists.push_back({path, kind, isRead, rule_});
  }

  void AddMedia(const String& path) {
    if (isOfSystem_) return;
    if (rule_ == Rule::None) return stock_.media.push_back(texts_.Keep(path));
    const std::optional<FileFacts> facts =
        AnswerOr(std::optional<FileFacts>(), [&] { return library_.Files().FactsOf(path); });
    stock_.skipped.push_back({path, facts ? facts->size : 0, rule_});
  }

  /// False also for one that cannot be opened: its name tells of no list.
  bool BeginsAsList(const String& path) {
    return AnswerOr(false, [&] {
      std::array<char, kBeginning> bytes;
      const std::size_t size = library_.Files().OpenForReading(path)->ReadAt(0, bytes);
      return LooksLikeList(std::string_view(bytes.data(), size));
    });
  }

  Component& library_;
  TextPool& texts_;
  WorkReport& report_;
  Stock stock_;
  std::size_t folders_ = 0;
  Rule rule_ = Rule::None;   // of the folder in hand
  bool isOfSystem_ = false;  // the folder in hand
};

}  // namespace

Stock TakeStock(Component& library, TextPool& texts, WorkReport& report) {
  StockTaker taker(library, texts, report);
  for (const Drive& drive : library.Files().Drives()) {
    if (drive.type != DriveType::Fixed) continue;
    WalkFolders(library.Files(), String(1, drive.letter) + u":\\", {}, taker);
  }
  return std::move(taker).Take();
}

}  // namespace norvo

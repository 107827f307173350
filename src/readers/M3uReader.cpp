#include "readers/M3uReader.h"

#include "automation/Attempt.h"
#include "model/NewEntry.h"
#include "readers/ItemResolver.h"
#include "readers/TextLines.h"
#include "services/Logging.h"
#include "services/NVServices.h"
#include "services/Utility.h"

namespace norvo {
namespace {

constexpr ResolverMessages kM3uMessages = {
    u"NVERR_FILE_NOT_FOUND, PLAYLIST::ReadM3U, File Not Found: ",
    u"NVERR_INVALID_ARG, PLAYLIST::ReadM3U, Invalid Argument or Bad Data: "};
constexpr ResolverMessages kMmjbMessages = {
    u"NVERR_FILE_NOT_FOUND, PLAYLIST::ReadMMJB, File Not Found: ",
    u"NVERR_INVALID_ARG, PLAYLIST::ReadMMJB, Invalid Argument or Bad Data: "};

std::shared_ptr<FormatEntry> NewItem(Component& component, const PlaylistRecord& playlist) {
  std::shared_ptr<FormatEntry> entry = NewEntry(component, playlist.type);
  entry->SetPlayListName(playlist.name);
  return entry;
}

/// What stands in a line; EXTM3U goes before EXTINF.
enum class M3uLine { Header, Info, Reference };

/// False for a line that cannot hold "EXT" in any case, told without a branch for each unit.
bool MayHoldMark(StringView line) {
  char16_t found = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const int others = ((line[i - 1] | 0x20) ^ u'e') | ((line[i] | 0x20) ^ u'x');
    found = static_cast<char16_t>(found | (others == 0 ? 1 : 0));
  }
  return found != 0;
}

M3uLine KindOf(StringView line) {
  constexpr StringView kMark = u"EXT";  // both begin so
  constexpr StringView kHeader = u"M3U";
  constexpr StringView kInfo = u"INF";
  M3uLine kind = M3uLine::Reference;
  // The quick look pays in front of the first mark and behind it. In front of each of very many it
  // would take time with the square of the line's length.
  for (std::size_t marks = 0; marks > 1 || MayHoldMark(line); ++marks) {
    const std::size_t at = FindIgnoreCase(line, kMark);
    if (at == StringView::npos) break;
    line.remove_prefix(at + kMark.size());
    const StringView rest = line.substr(0, kHeader.size());
    if (EqualsIgnoreCase(rest, kHeader)) return M3uLine::Header;
    if (EqualsIgnoreCase(rest, kInfo)) kind = M3uLine::Info;
  }
  return kind;
}

bool ResolveM3u(Component& component, PlaylistRecord& playlist, TextStream& stream, String folder) {
  // An empty file has no lines to walk and fails.
  const String text = stream.ReadAll();
  stream.Close();
  bool complete = true;
  const std::vector<M3uItem> items = SplitM3u(SplitLines(text), complete);
  ItemResolver resolver(component, playlist, std::move(folder), kM3uMessages);
  for (const M3uItem& item : items) {
    // The two labels differ on purpose.
    resolver.Resolve(NewItem(component, playlist), item.reference, item.info,
                     item.extended ? kMediaLabel : kMusicLabel);
  }
  return complete;
}

bool ResolveMmjb(Component& component, PlaylistRecord& playlist, TextStream& stream,
                 String folder) {
  ItemResolver resolver(component, playlist, std::move(folder), kMmjbMessages);
  while (!stream.AtEnd()) {
    const String line = stream.ReadLine();
    resolver.Resolve(NewItem(component, playlist), NVServices::StripNull(line), {}, kMusicLabel);
  }
  return true;
}

using Resolve = bool (*)(Component&, PlaylistRecord&, TextStream&, String);

bool ReadWith(Resolve resolve, StringView openFailure, Component& component,
              PlaylistRecord& playlist, StringView fileName, StringView folderPath) {
  playlist.entries->SetCollectionType(playlist.type);
  const String folder = Utility::AddBackslash(folderPath);
  const std::unique_ptr<TextStream> stream =
      DataCop::OpenTextStream(component, folder + String(fileName));
  if (!stream) {
    WriteLog(component, openFailure);
    return false;
  }
  // After an error the entries added so far stay.
  return AnswerOr(false, [&] { return resolve(component, playlist, *stream, folder); });
}

}  // namespace

std::vector<M3uItem> SplitM3u(const std::vector<StringView>& lines, bool& complete) {
  std::vector<M3uItem> items;
  complete = !ExceedsLineLimit(lines);
  const std::size_t reachable = ReachableLines(lines);
  for (std::size_t i = 0; i < reachable; ++i) {
    if (lines[i].empty()) continue;
    const StringView line = NVServices::StripNull(lines[i]);
    const M3uLine kind = KindOf(line);
    if (kind == M3uLine::Header) continue;
    if (kind == M3uLine::Reference) {
      items.push_back({line, {}, false});
    } else if (i + 1 < reachable) {
      items.push_back({NVServices::StripNull(lines[++i]), line, true});
    } else {
      complete = false;  // the reference that should follow does not exist
    }
  }
  return items;
}

bool ReadM3U(Component& component, PlaylistRecord& playlist, StringView fileName,
             StringView folder) {
  return ReadWith(ResolveM3u,
                  u"NVERR_OPFAIL, PLAYLIST::ReadM3U, Failed to recieve the TextStream reference!",
                  component, playlist, fileName, folder);
}

bool ReadMMJB(Component& component, PlaylistRecord& playlist, StringView fileName,
              StringView folder) {
  return ReadWith(ResolveMmjb,
                  u"NVERR_OPFAIL, PLAYLIST::ReadMMJB, Failed to recieve the TextStream reference!",
                  component, playlist, fileName, folder);
}

}  // namespace norvo

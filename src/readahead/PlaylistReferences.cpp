#include "readahead/PlaylistReferences.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "platform/files/SystemCalls.h"
#include "text/CodePage.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// Holds a line several times over: no path is longer than 32767 characters, and few are as long.
constexpr std::size_t kBlock = std::size_t{16} * 1024;

constexpr std::string_view kEndings[] = {".m3u", ".m3u8", ".pls", ".asx", ".wax", ".wvx", ".wpl"};

template <class Text>
bool EndsLikePlaylist(Text name) {
  const auto isUnit = [](char wanted, auto unit) {
    return unit == wanted || (unit >= 'A' && unit <= 'Z' && unit + ('a' - 'A') == wanted);
  };
  return std::any_of(std::begin(kEndings), std::end(kEndings), [&](std::string_view ending) {
    return name.size() >= ending.size() &&
           std::equal(ending.rbegin(), ending.rend(), name.rbegin(), isUnit);
  });
}

std::string_view Trimmed(std::string_view line) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = line.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

std::string_view InQuotes(std::string_view line) {
  const std::size_t first = line.find('"');
  if (first == std::string_view::npos) return {};
  const std::size_t end = line.find('"', first + 1);
  return end == std::string_view::npos ? std::string_view()
                                       : line.substr(first + 1, end - first - 1);
}

std::string_view ReferenceIn(std::string_view line) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (line.starts_with(kMark)) line.remove_prefix(kMark.size());
  line = Trimmed(line);
  if (line.empty() || line.front() == '#' || line.front() == '[') return {};
  if (line.front() == '<') return InQuotes(line);
  const std::size_t equals = line.starts_with("File") ? line.find('=') : std::string_view::npos;
  return equals == std::string_view::npos ? line : line.substr(equals + 1);
}

String TextOf(std::string_view bytes) {
  std::optional<String> text = FromUtf8(bytes);
  return text ? std::move(*text) : Windows1252().Decode(bytes);
}

}  // namespace

bool NamesPlaylist(StringView name) {
  return EndsLikePlaylist(name);
}

bool NamesPlaylist(std::string_view name) {
  return EndsLikePlaylist(name);
}

void ForEachReference(const SystemFile& playlist,
                      const std::function<bool(std::string_view reference)>& visit) {
  std::array<char, kBlock> block;
  std::size_t kept = 0;  // in front of the block: a line whose end was not read yet
  for (std::uint64_t offset = 0; kept < kBlock;) {
    const FileResult<std::size_t> got = ReadSome(playlist, offset, std::span(block).subspan(kept));
    const std::size_t more = got ? *got : 0;
    offset += more;
    std::string_view text(block.data(), kept + more);
    for (;;) {
      const std::size_t end = text.find('\n');
      const bool isLast = end == std::string_view::npos;
      if (isLast && more > 0) break;
      const std::string_view reference = ReferenceIn(text.substr(0, end));
      if ((!reference.empty() && !visit(reference)) || isLast) return;
      text.remove_prefix(end + 1);
    }
    std::copy(text.begin(), text.end(), block.begin());
    kept = text.size();
  }
}

String ReferencedPath(std::string_view reference, StringView folder) {
  if (reference.find("://") != std::string_view::npos) return {};
  String path = TextOf(reference);
  if (!path.empty() && !IsSeparator(path.front()) && !HasDrive(path)) path.insert(0, folder);
  path = AbsolutePath(path, DriveName(folder));
  return HasDrive(path) ? path : String();
}

}  // namespace norvo

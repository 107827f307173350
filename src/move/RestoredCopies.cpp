#include "move/RestoredCopies.h"

#include <optional>
#include <utility>

#include "automation/Attempt.h"
#include "text/Encoding.h"
#include "text/Fingerprint.h"

namespace norvo {
namespace {

constexpr const char* kTitle =
    "; The playlists that restore has made here. Those that are still the same are no playlists of "
    "this machine's own.\r\n";

// Ten thousand restorings; more would tell of a damaged file.
constexpr std::size_t kMost = 100'000;

}  // namespace

RestoredCopies::RestoredCopies(Component& machine, const String& dataArea)
    : machine_(machine), path_(dataArea + u"RestoredCopies.txt") {
  const std::string bytes = machine_.Machine().Settings().Read(path_).value_or(std::string());
  std::string_view rest = bytes;
  for (std::size_t end = rest.find("\r\n"); end != std::string_view::npos && rows_.size() < kMost;
       end = rest.find("\r\n")) {
    Take(rest.substr(0, end));
    rest.remove_prefix(end + 2);
  }
}

/// A print, a tab and a path.
void RestoredCopies::Take(std::string_view line) {
  const std::size_t tab = line.find('\t');
  if (tab == std::string_view::npos) return;
  String path = FromUtf8Lossy(line.substr(tab + 1));
  String folded = Fold(path);
  rows_.insert_or_assign(std::move(folded), Row{std::string(line.substr(0, tab)), std::move(path)});
}

/// Empty for what cannot be read.
std::string RestoredCopies::PrintOf(const String& path) const {
  return AnswerOr(std::string(), [&] {
    const std::optional<std::string> bytes = machine_.Machine().Settings().Read(path);
    return bytes ? TextOf(FingerprintOf(std::string_view(*bytes))) : std::string();
  });
}

bool RestoredCopies::Has(const String& path) const {
  const auto found = rows_.find(Fold(path));
  if (found == rows_.end()) return false;
  const std::string print = PrintOf(path);
  return !print.empty() && found->second.print == print;
}

void RestoredCopies::Add(const std::vector<String>& paths) {
  for (const String& path : paths) {
    std::string print = PrintOf(path);
    if (!print.empty()) rows_.insert_or_assign(Fold(path), Row{std::move(print), path});
  }
  std::string text = kTitle;
  for (const auto& [folded, row] : rows_) text += row.print + '\t' + ToUtf8(row.path) + "\r\n";
  machine_.Machine().Settings().Write(path_, text);
}

}  // namespace norvo

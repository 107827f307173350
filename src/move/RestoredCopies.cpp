#include "move/RestoredCopies.h"

#include <optional>
#include <utility>

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "text/Encoding.h"
#include "text/Fingerprint.h"

namespace norvo {
namespace {

constexpr StringView kFile = u"RestoredCopies.txt";
constexpr const char* kCopiesTitle =
    "; The playlists that restore or migrate has made here. Those that are still the same are no "
    "playlists of this machine's own.\r\n";

// Ten thousand restorings; more would tell of a damaged file.
constexpr std::size_t kMost = 100'000;

}  // namespace

MadeList AsItIs(Component& machine, const String& path) {
  std::string print = AnswerOr(std::string(), [&] {
    const std::optional<std::string> bytes = machine.Machine().Settings().Read(path);
    return bytes ? TextOf(FingerprintOf(std::string_view(*bytes))) : std::string();
  });
  return {path, std::move(print)};
}

RestoredCopies::RestoredCopies(Component& machine, const String& dataArea)
    : machine_(machine), path_(dataArea + String(kFile)) {
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
  rows_.try_emplace({std::move(folded), std::string(line.substr(0, tab))}, std::move(path));
}

bool RestoredCopies::Has(const String& path) const {
  const auto first = rows_.lower_bound({Fold(path), {}});
  if (first == rows_.end() || first->first.first != Fold(path)) return false;
  const std::string print = AsItIs(machine_, path).print;
  return !print.empty() && rows_.contains({Fold(path), print});
}

void RestoredCopies::Add(std::span<const MadeList> lists) {
  bool isNew = false;
  for (const MadeList& list : lists) {
    if (list.print.empty()) continue;
    isNew = rows_.try_emplace({Fold(list.path), list.print}, list.path).second || isNew;
  }
  if (!isNew) return;
  std::string text = kCopiesTitle;
  for (const auto& [row, path] : rows_) text += row.second + '\t' + ToUtf8(path) + "\r\n";
  machine_.Machine().Settings().Write(path_, text);
}

void NoteCopies(Component& machine, const String& dataArea, std::span<const MadeList> lists,
                MachineSide side, WorkReport& report) {
  if (lists.empty()) return;
  try {
    RestoredCopies(machine, dataArea).Add(lists);
  } catch (const RunTimeError& failure) {
    WorkWarning warning;
    warning.kind = WorkWarning::Kind::CopiesNotNoted;
    warning.side = side;
    warning.subject = dataArea + String(kFile);
    warning.detail = failure.Description();
    report.Warn(std::move(warning));
  }
}

}  // namespace norvo

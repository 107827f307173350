#include "move/RestoreLedger.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "services/Utility.h"
#include "text/Encoding.h"
#include "text/Fingerprint.h"
#include "text/Number.h"

namespace norvo {
namespace {

constexpr const char* kLedgerTitle =
    "; What was moved to this machine: the neutral files that were restored, the playlists made of "
    "them, and the songs' places.\r\n";

// The kinds of lines. A line is whole only with its line end.
constexpr StringView kBegin = u"begin";    // fingerprint, neutral file, key of the playlist
constexpr StringView kIntend = u"intend";  // path
constexpr StringView kNative = u"native";  // path
constexpr StringView kPrints = u"prints";  // one for each native, as it was made
constexpr StringView kDone = u"done";      // until it is durable with a size for each native
constexpr StringView kUndone = u"undone";
constexpr StringView kSong = u"song";  // its name, place, artist, album, maybe full place

// In memory each takes several times its length. Songs beyond are planned anew by each move, which
// finds them at their places.
constexpr std::size_t kMostSongs = 200'000;

// But for songs. A playlist has some eight; these are ten years of moves.
constexpr std::size_t kMostLines = 300'000;
constexpr const char16_t* kTooManyLines = u"File of more than 300000 lines: ";

// Bytes; the names and paths of a line have much less. What is longer is no line.
constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;

std::vector<String> Fields(StringView line) {
  const std::vector<StringView> fields = Split(line, u'\t');
  return {fields.begin(), fields.end()};
}

std::string BeginLine(const std::string& fingerprint, const String& genericFile,
                      const std::string& key) {
  return ToUtf8(kBegin) + '\t' + fingerprint + '\t' + ToUtf8(genericFile) + '\t' + key + "\r\n";
}

/// Empty for names that a line cannot hold; the song is planned anew then.
std::string SongLine(const String& source, const KnownPlace& known) {
  String line = source;
  for (const StringView text : {known.place, known.artist, known.album}) {
    line.append(1, u'\t').append(text);
  }
  if (!known.fullPlace.empty()) line.append(1, u'\t').append(known.fullPlace);
  const bool holds =
      std::count(line.begin(), line.end(), u'\t') == (known.fullPlace.empty() ? 3 : 4) &&
      line.find_first_of(u"\r\n") == String::npos;
  return holds ? ToUtf8(kSong) + '\t' + ToUtf8(line) + "\r\n" : std::string();
}

std::string PathLine(StringView kind, const String& path) {
  return ToUtf8(kind) + '\t' + ToUtf8(path) + "\r\n";
}

std::string PrintsLine(const std::vector<std::string>& prints) {
  if (prints.empty()) return {};
  std::string line = ToUtf8(kPrints);
  for (const std::string& print : prints) line += '\t' + print;
  return line + "\r\n";
}

std::string PrintOf(std::string_view bytes) {
  return TextOf(FingerprintOf(bytes));
}

}  // namespace

RestoreLedger::RestoreLedger(Component& machine, const String& dataArea)
    : machine_(machine), path_(dataArea + u"Restored.txt") {
  const bool whole = Load();
  if (whole && !current_ && cutOff_.empty()) return;
  if (current_) cutOff_.push_back(*std::exchange(current_, std::nullopt));
  for (const Row& row : cutOff_) DeleteUnfinished(row);
  cutOff_.clear();
  try {
    Compact();
  } catch (const RunTimeError&) {
    if (!whole) throw;  // what is added next would run into the torn line
    // A full disk: the next run will find the same again.
  }
}

/// False when the last line is torn.
bool RestoreLedger::Load() {
  const std::optional<std::string> bytes = machine_.Machine().Settings().Read(path_);
  exists_ = bytes.has_value();
  std::string_view rest = bytes ? std::string_view(*bytes) : std::string_view();
  std::size_t lines = 0;
  for (std::size_t end = rest.find("\r\n"); end != std::string_view::npos;
       end = rest.find("\r\n")) {
    if (!rest.starts_with("song\t")) ++lines;
    if (lines > kMostLines) throw RunTimeError(error::kOutOfMemory, kTooManyLines + path_);
    if (end <= kLongestLine) Take(Fields(FromUtf8Lossy(rest.substr(0, end))));
    rest.remove_prefix(end + 2);
  }
  return rest.empty();
}

void RestoreLedger::Take(const std::vector<String>& fields) {
  if (fields.size() == 4 && fields[0] == kBegin) {
    current_ = Row{fields[2], ToUtf8(fields[3]), ToUtf8(fields[1]), {}, {}};
  } else if ((fields.size() == 5 || fields.size() == 6) && fields[0] == kSong) {
    AddPlace(fields[1], {fields[2], fields[3], fields[4],
                         fields.size() == 6 ? StringView(fields[5]) : StringView()});
  } else if (fields.size() == 2 && fields[0] == kIntend && current_) {
    current_->intended.push_back(fields[1]);
  } else if (fields.size() == 2 && fields[0] == kNative && current_) {
    current_->natives.push_back(fields[1]);
  } else if (fields[0] == kPrints && current_) {
    current_->prints.clear();
    for (const String& print : std::span(fields).subspan(1)) {
      current_->prints.push_back(ToUtf8(print));
    }
  } else if (fields[0] == kDone && current_) {
    current_->isDurable = fields.size() == 1;
    if (!current_->isDurable && !AreWhole(current_->natives, std::span(fields).subspan(1))) {
      cutOff_.push_back(*std::move(current_));
    } else if (!current_->natives.empty()) {
      // Earlier versions noted a list as done of which nothing was written: it is to be restored.
      Keep();
    }
    current_.reset();
  } else if (fields[0] == kUndone) {
    current_.reset();
  }
}

/// Empty for a list that is not there.
String RestoreLedger::SizeOf(const String& native) {
  const std::optional<FileFacts> facts = machine_.Files().FactsOf(native);
  return facts ? FormatInteger(static_cast<std::int64_t>(facts->size)) : String();
}

/// As they are noted; nothing when there are none, or one cannot be looked up.
std::optional<std::string> RestoreLedger::SizesOf(const std::vector<String>& natives) {
  if (natives.empty()) return std::nullopt;
  return AnswerOr(std::optional<std::string>(), [&]() -> std::optional<std::string> {
    std::string sizes;
    for (const String& native : natives) sizes += '\t' + ToUtf8(SizeOf(native));
    return sizes;
  });
}

bool RestoreLedger::AreWhole(const std::vector<String>& natives, std::span<const String> sizes) {
  return std::equal(natives.begin(), natives.end(), sizes.begin(), sizes.end(),
                    [this](const String& native, const String& size) {
                      return !size.empty() && SizeOf(native) == size;
                    });
}

void RestoreLedger::Keep() {
  Row row = std::move(*current_);
  row.intended.clear();
  if (row.prints.size() != row.natives.size()) row.prints.clear();  // of an earlier version
  current_.reset();
  String folded = Fold(row.genericFile);
  if (!row.key.empty()) TakeKey(row.key, folded);
  restored_.insert_or_assign(std::move(folded), std::move(row));
}

/// The last playlist with a key is the one that is known by it, and the only one that is written
/// with it: the order of the names would decide else, the next time.
void RestoreLedger::TakeKey(const std::string& key, const String& folded) {
  const auto [known, isNew] = byKey_.try_emplace(key, folded);
  if (isNew || known->second == folded) return;
  Row& before = restored_.at(known->second);
  if (before.key == key) before.key.clear();
  known->second = folded;
}

/// Empty for a file that is not there.
std::string RestoreLedger::FingerprintOf(const String& path) {
  const std::optional<std::string> bytes = machine_.Machine().Settings().Read(path);
  return bytes ? PrintOf(*bytes) : std::string();
}

/// Nothing when one cannot be read, not even the second time: other programs look at new files,
/// too.
std::optional<std::vector<std::string>> RestoreLedger::PrintsOf(
    const std::vector<String>& natives) {
  std::vector<std::string> prints;
  for (const String& native : natives) {
    std::string print = AsItIs(machine_, native).print;
    if (print.empty()) print = AsItIs(machine_, native).print;
    if (print.empty()) return std::nullopt;
    prints.push_back(std::move(print));
  }
  return prints;
}

bool RestoreLedger::IsRestored(const String& genericFile) {
  const auto found = restored_.find(Fold(genericFile));
  return found != restored_.end() && found->second.fingerprint == FingerprintOf(genericFile);
}

std::vector<String> RestoreLedger::NativesOf(const String& genericFile) const {
  const auto found = restored_.find(Fold(genericFile));
  return found == restored_.end() ? std::vector<String>() : found->second.natives;
}

std::vector<MadeList> RestoreLedger::MadeLists() const {
  std::vector<MadeList> lists;
  for (const auto& [folded, row] : restored_) {
    for (std::size_t i = 0; i < row.prints.size(); ++i) {
      if (!row.prints[i].empty()) lists.push_back({row.natives[i], row.prints[i]});
    }
  }
  return lists;
}

String RestoreLedger::CarriedFor(const std::string& key) {
  const auto found = byKey_.find(key);
  if (found == byKey_.end()) return {};
  const Row& row = restored_.at(found->second);
  // A generic file that was deleted since has been restored all the same.
  const std::string now = FingerprintOf(row.genericFile);
  const bool known = row.key == key && (now.empty() || now == row.fingerprint);
  return known ? row.genericFile : String();
}

String RestoreLedger::NameOf(StringView source, double size) {
  return Fold(source) + u"|" + FormatNumber(size);  // no path holds a "|"
}

const std::vector<KnownPlace>& RestoreLedger::PlacesOf(const String& song) const {
  static const std::vector<KnownPlace> none;
  const auto found = places_.find(song);
  return found == places_.end() ? none : found->second;
}

void RestoreLedger::AddPlace(const String& song, const KnownPlace& place) {
  LendPlace(song, {texts_.Keep(place.place), texts_.Keep(place.artist), texts_.Keep(place.album),
                   texts_.Keep(place.fullPlace)});
}

void RestoreLedger::LendPlace(const String& song, const KnownPlace& place) {
  if (places_.size() >= kMostSongs && !places_.contains(song)) return;
  std::vector<KnownPlace>& known = places_[song];
  const auto same = std::find_if(known.begin(), known.end(), [&place](const KnownPlace& each) {
    return EqualsIgnoreCase(each.place, place.place);
  });
  if (same == known.end()) {
    known.push_back(place);
  } else {
    *same = place;
  }
}

void RestoreLedger::Begin(const String& genericFile, const std::string& key,
                          const std::string& print, const std::vector<String>& intended) {
  current_ =
      Row{genericFile, key, print.empty() ? FingerprintOf(genericFile) : print, {}, intended};
  std::string lines = BeginLine(current_->fingerprint, genericFile, key);
  for (const String& native : intended) lines += PathLine(kIntend, native);
  Append(lines);
  if (!intended.empty()) Flush();
}

void RestoreLedger::AddNative(const String& path) {
  if (!current_) return;
  current_->natives.push_back(path);
  Append(PathLine(kNative, path));
  const std::vector<String>& intended = current_->intended;
  if (std::find(intended.begin(), intended.end(), path) == intended.end()) Flush();
}

void RestoreLedger::End(bool whole) {
  if (!current_) return;
  const std::optional<std::string> sizes = whole ? SizesOf(current_->natives) : std::nullopt;
  const auto prints = sizes ? PrintsOf(current_->natives) : std::nullopt;
  if (prints) {
    current_->isDurable = false;
    current_->prints = *prints;
    Keep();
    Append(PrintsLine(*prints) + ToUtf8(kDone) + *sizes + "\r\n");
  } else {
    DeleteNatives(*current_);
    current_.reset();
    Append(ToUtf8(kUndone) + "\r\n");
  }
}

void RestoreLedger::Append(const std::string& line) {
  if (!growing_) {
    if (!exists_) machine_.Machine().Settings().Write(path_, kLedgerTitle);
    exists_ = true;
    growing_ = machine_.Files().OpenForAppending(path_, false);
  }
  growing_->Append(line);
}

void RestoreLedger::Flush() {
  machine_.Files().MakeDurable({&path_, 1});
}

/// A native playlist is noted before it is created. What was not written then is somebody else's.
void RestoreLedger::DeleteUnfinished(const Row& row) {
  constexpr std::int64_t kSecond = 1'000'000'000;
  constexpr std::int64_t kLongest = 3600 * kSecond;
  const std::optional<FileFacts> ledger = machine_.Files().FactsOf(path_);
  std::vector<String> natives = row.natives;
  natives.insert(natives.end(), row.intended.begin(), row.intended.end());
  for (const String& native : natives) {
    const std::optional<FileFacts> facts = machine_.Files().FactsOf(native);
    if (!ledger || !facts) continue;
    const std::int64_t after = facts->modified - ledger->modified;
    if (after < 2 * kSecond && after > -kLongest) Utility::DeleteFileForced(machine_, native);
  }
}

void RestoreLedger::DeleteNatives(const Row& row) {
  for (const String& native : row.natives) Utility::DeleteFileForced(machine_, native);
}

/// With the ledger itself, which tells until it is written anew whose they are.
void RestoreLedger::MakeDurable() {
  std::vector<String> paths;
  for (const auto& [folded, row] : restored_) {
    if (!row.isDurable) paths.insert(paths.end(), row.natives.begin(), row.natives.end());
  }
  if (paths.empty()) return;
  paths.push_back(path_);
  machine_.Files().MakeDurable(paths);
  for (auto& [folded, row] : restored_) row.isDurable = true;
}

void RestoreLedger::Compact() {
  MakeDurable();
  growing_.reset();
  std::string text = kLedgerTitle;
  for (const auto& [folded, row] : restored_) {
    text += BeginLine(row.fingerprint, row.genericFile, row.key);
    for (const String& native : row.natives) text += PathLine(kNative, native);
    text += PrintsLine(row.prints) + ToUtf8(kDone) + "\r\n";
  }
  for (const auto& [song, known] : places_) {
    for (const KnownPlace& place : known) text += SongLine(song, place);
  }
  machine_.Machine().Settings().Write(path_, text);
  exists_ = true;
}

}  // namespace norvo

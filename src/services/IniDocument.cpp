#include "services/IniDocument.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "services/SettingsText.h"

namespace norvo {
namespace {

// Up to this many lines a search costs less than an index.
constexpr std::size_t kSearchedLines = 32;
// A section of a generic file has about so many.
constexpr std::size_t kUsualLines = 14;

StringView TrimBlanksAndTabs(StringView text) {
  return Trim(text, IsBlankOrTab);
}

}  // namespace

IniDocument::Line IniDocument::NewKey(StringView key, StringView value) {
  const std::size_t start = pool_.size();
  pool_.append(key).append(1, u'=').append(value);
  return LastLine(start, key.size());
}

IniDocument::Line IniDocument::NewOther(StringView text) {
  pool_.append(text);
  return LastLine(pool_.size() - text.size(), 0);
}

/// The line whose text was put at the pool's end just now.
IniDocument::Line IniDocument::LastLine(std::size_t start, std::size_t keyLength) const {
  if (pool_.size() > UINT32_MAX) throw std::length_error("settings too long");
  return {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(pool_.size() - start),
          static_cast<std::uint32_t>(keyLength)};
}

IniDocument::IniDocument(StringView text) {
  std::size_t section = kNone;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of(u"\r\n", at), text.size());
    AddLine(section, text.substr(at, end - at));
    const bool pair = text.substr(end, 2) == u"\r\n";
    at = end + (pair ? 2 : 1);
  }
}

IniDocument::IniDocument(const IniDocument& other)
    : pool_(other.pool_), preamble_(other.preamble_), sections_(other.sections_) {
  // The names that the index views are those of the copy.
  byName_.reserve(sections_.size());
  for (std::size_t i = 0; i < sections_.size(); ++i) byName_.emplace(sections_[i].name, i);
}

IniDocument& IniDocument::operator=(const IniDocument& other) {
  return *this = IniDocument(other);
}

void IniDocument::AddLine(std::size_t& section, StringView line) {
  const StringView content = TrimBlanksAndTabs(line);
  const std::size_t close = content.rfind(u']');
  if (content.starts_with(u'[') && close != StringView::npos) {
    section = FindOrAddSection(content.substr(1, close - 1));
    return;
  }
  std::vector<Line>& lines = section == kNone ? preamble_ : sections_[section].lines;
  const std::size_t equals = content.find(u'=');
  if (content.starts_with(u';') || equals == StringView::npos || equals == 0) {
    lines.push_back(NewOther(line));
    return;
  }
  lines.push_back(NewKey(TrimBlanksAndTabs(content.substr(0, equals)),
                         TrimBlanksAndTabs(content.substr(equals + 1))));
}

std::size_t IniDocument::FindSection(StringView name) const {
  const auto found = byName_.find(TrimBlanksAndTabs(name));
  return found == byName_.end() ? kNone : found->second;
}

std::size_t IniDocument::FindOrAddSection(StringView name) {
  name = TrimBlanksAndTabs(name);
  const std::size_t found = FindSection(name);
  if (found != kNone) return found;
  Section& section = sections_.emplace_back();
  section.name = name;
  section.lines.reserve(kUsualLines);
  byName_.emplace(section.name, sections_.size() - 1);
  return sections_.size() - 1;
}

std::size_t IniDocument::FindKey(const Section& section, StringView key) const {
  if (key.empty()) return kNone;
  if (section.lines.size() <= kSearchedLines) return SearchKey(section, key);
  IndexKeys(section);
  return FindIndexed(section, key).value_or(kNone);
}

std::size_t IniDocument::SearchKey(const Section& section, StringView key) const {
  for (std::size_t i = 0; i < section.lines.size(); ++i) {
    const Line& line = section.lines[i];
    if (line.keyLength == key.size() && EqualsIgnoreCase(KeyOf(line), key)) return i;
  }
  return kNone;
}

std::optional<std::size_t> IniDocument::FindIndexed(const Section& section, StringView key) const {
  return section.byKey.Find(CaselessHash()(key), [&](std::size_t at) {
    return EqualsIgnoreCase(KeyOf(section.lines[at]), key);
  });
}

/// Of equal keys the first one only.
void IniDocument::IndexKeys(const Section& section) const {
  if (section.indexed == section.lines.size()) return;
  const auto hashOf = [&](std::size_t at) { return CaselessHash()(KeyOf(section.lines[at])); };
  section.byKey.Reserve(section.lines.size(), hashOf);
  for (; section.indexed < section.lines.size(); ++section.indexed) {
    const Line& line = section.lines[section.indexed];
    if (line.keyLength == 0 || FindIndexed(section, KeyOf(line))) continue;
    section.byKey.Add(section.indexed, hashOf(section.indexed));
  }
}

std::optional<StringView> IniDocument::Value(std::size_t section, StringView key) const {
  const Section& holder = sections_.at(section);
  const std::size_t position = FindKey(holder, TrimBlanksAndTabs(key));
  if (position == kNone) return std::nullopt;
  return ValueOf(holder.lines[position]);
}

std::vector<StringView> IniDocument::Keys(std::size_t section) const {
  std::vector<StringView> keys;
  for (const Line& line : sections_.at(section).lines) {
    if (line.keyLength > 0) keys.push_back(KeyOf(line));
  }
  return keys;
}

void IniDocument::SetValue(std::size_t section, StringView key, StringView value) {
  Section& target = sections_.at(section);
  key = TrimBlanksAndTabs(key);
  String joined;
  const StringView stored = StoredValue(value, joined);
  if (const std::size_t position = FindKey(target, key); position != kNone) {
    const String spelled(KeyOf(target.lines[position]));  // the key keeps its own spelling
    target.lines[position] = NewKey(spelled, stored);
    return;
  }
  target.lines.push_back(NewKey(key, stored));
  if (LeavesEmptyLine(value)) target.lines.push_back(NewOther({}));
}

String IniDocument::ToText() const {
  constexpr std::size_t kAround = 8;  // brackets and line ends of a section's name, amply
  String text;
  text.reserve(pool_.size() + pool_.size() / 4 + sections_.size() * kAround);
  const auto appendLines = [&](const std::vector<Line>& lines) {
    for (const Line& line : lines) AppendLine(text, TextOf(line));
  };
  appendLines(preamble_);
  for (const Section& section : sections_) {
    AppendSection(text, section.name);
    appendLines(section.lines);
  }
  return text;
}

}  // namespace norvo

#include "services/IniDocument.h"

#include <stdexcept>
#include <utility>

#include "services/SettingsLines.h"
#include "services/SettingsText.h"

namespace norvo {
namespace {

// Up to this many lines a search costs less than an index.
constexpr std::size_t kSearchedLines = 32;
// A section of a generic file has about so many.
constexpr std::size_t kUsualLines = 14;

}  // namespace

/// Of a part of the pool itself.
IniDocument::Piece IniDocument::PieceOf(StringView text) const {
  return {static_cast<std::uint32_t>(text.empty() ? 0 : text.data() - pool_.data()),
          static_cast<std::uint32_t>(text.size())};
}

IniDocument::Piece IniDocument::NewPiece(StringView text) {
  const std::size_t start = pool_.size();
  if (text.size() > UINT32_MAX - start) throw std::length_error("texts too long");
  pool_.append(text);
  return {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(text.size())};
}

void IniDocument::AddLine(std::vector<Line>& lines, Line added) {
  if (lines.capacity() == 0) lines.reserve(kUsualLines);
  lines.push_back(added);
}

IniDocument::IniDocument(String text) : pool_(std::move(text)) {
  if (pool_.size() > UINT32_MAX) throw std::length_error("texts too long");
  std::vector<Line>* target = &preamble_;
  SettingsLines lines(pool_);
  for (SettingsLine line; lines.Next(line);) {
    if (line.kind == SettingsLine::Kind::Section) {
      target = &sections_[FindOrAddSection(line.name)].lines;
    } else {
      AddLine(*target, {PieceOf(line.name), PieceOf(line.value)});
    }
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
    const Piece& known = section.lines[i].key;
    if (known.length == key.size() && EqualsIgnoreCase(TextOf(known), key)) return i;
  }
  return kNone;
}

std::optional<std::size_t> IniDocument::FindIndexed(const Section& section, StringView key) const {
  return section.byKey.Find(CaselessHash()(key), [&](std::size_t at) {
    return EqualsIgnoreCase(TextOf(section.lines[at].key), key);
  });
}

/// Of equal keys the first one only.
void IniDocument::IndexKeys(const Section& section) const {
  if (section.indexed == section.lines.size()) return;
  const auto hashOf = [&](std::size_t at) { return CaselessHash()(TextOf(section.lines[at].key)); };
  section.byKey.Reserve(section.lines.size(), hashOf);
  for (; section.indexed < section.lines.size(); ++section.indexed) {
    const Piece& known = section.lines[section.indexed].key;
    if (known.length == 0 || FindIndexed(section, TextOf(known))) continue;
    section.byKey.Add(section.indexed, hashOf(section.indexed));
  }
}

std::optional<StringView> IniDocument::Value(std::size_t section, StringView key) const {
  const Section& holder = sections_.at(section);
  const std::size_t position = FindKey(holder, TrimBlanksAndTabs(key));
  if (position == kNone) return std::nullopt;
  return TextOf(holder.lines[position].value);
}

std::vector<StringView> IniDocument::Keys(std::size_t section) const {
  std::vector<StringView> keys;
  for (const Line& line : sections_.at(section).lines) {
    if (line.key.length > 0) keys.push_back(TextOf(line.key));
  }
  return keys;
}

void IniDocument::SetValue(std::size_t section, StringView key, StringView value) {
  Section& target = sections_.at(section);
  key = TrimBlanksAndTabs(key);
  String joined;
  const StringView stored = StoredValue(value, joined);
  if (const std::size_t position = FindKey(target, key); position != kNone) {
    target.lines[position].value = NewPiece(stored);  // the key keeps its own spelling
    return;
  }
  if (key.empty()) {  // a line that is no key
    AddLine(target.lines, {{}, NewPiece(String(u"=").append(stored))});
  } else {
    const Piece added = NewPiece(key);
    AddLine(target.lines, {added, NewPiece(stored)});
  }
  if (LeavesEmptyLine(value)) target.lines.emplace_back();
}

String IniDocument::ToText() const {
  constexpr std::size_t kAround = 8;  // brackets and line ends of a section's name, amply
  String text;
  text.reserve(pool_.size() + pool_.size() / 4 + sections_.size() * kAround);
  const auto appendLines = [&](const std::vector<Line>& lines) {
    for (const Line& line : lines) {
      if (line.key.length > 0) text.append(TextOf(line.key)).append(1, u'=');
      AppendLine(text, TextOf(line.value));
    }
  };
  appendLines(preamble_);
  for (const Section& section : sections_) {
    AppendSection(text, section.name);
    appendLines(section.lines);
  }
  return text;
}

}  // namespace norvo

#include "move/GenericDraft.h"

#include <algorithm>
#include <utility>

#include "model/GenericSections.h"
#include "services/SettingsLines.h"

namespace norvo {
namespace {

/// Of the section "Entry 12 Properties"; 0 for every other.
std::size_t EntryNumberOf(StringView name) {
  constexpr StringView kBefore = u"Entry ";
  constexpr StringView kBehind = u" Properties";
  constexpr std::size_t kMostDigits = 9;
  if (!EqualsIgnoreCase(name.substr(0, kBefore.size()), kBefore)) return 0;
  name.remove_prefix(kBefore.size());
  std::size_t number = 0;
  std::size_t digits = 0;
  for (; digits < name.size() && digits < kMostDigits && IsDigit(name[digits]); ++digits) {
    number = number * 10 + (name[digits] - u'0');
  }
  const bool isPlain = digits > 0 && name.front() != u'0';
  return isPlain && EqualsIgnoreCase(name.substr(digits), kBehind) ? number : 0;
}

/// As a settings file holds it: on one line, without blanks around it.
String Stored(StringView value) {
  IniDocument document;
  const std::size_t section = document.FindOrAddSection(u"x");
  document.SetValue(section, u"x", value);
  return String(document.Value(section, u"x").value_or(StringView()));
}

bool IsStoredAsIs(StringView value) {
  return value.find_first_of(u"\r\n") == StringView::npos &&
         TrimBlanksAndTabs(value).size() == value.size();
}

/// Position of the key's line, that of the end when there is none. A key is not empty, as is the
/// one of a line that has none.
std::size_t FindKey(const TextPool& texts, std::span<const SectionPool::Line> lines,
                    StringView key) {
  const auto found = std::find_if(lines.begin(), lines.end(), [&](const SectionPool::Line& line) {
    const StringView text = texts.Text(line.key);
    return text.size() == key.size() && EqualsIgnoreCase(text, key);
  });
  return static_cast<std::size_t>(found - lines.begin());
}

std::optional<StringView> ValueIn(const TextPool& texts, std::span<const SectionPool::Line> lines,
                                  StringView key) {
  const std::size_t found = FindKey(texts, lines, key);
  if (found == lines.size()) return std::nullopt;
  return texts.Text(lines[found].value);
}

}  // namespace

GenericDraft::GenericDraft(StringView text, SectionPool& pool) : pool_(&pool) {
  TextPool& texts = pool.Texts();
  std::size_t section = kNone;
  std::vector<SectionPool::Line> found;
  SettingsLines lines(text);
  for (SettingsLine line; lines.Next(line);) {
    if (line.kind != SettingsLine::Kind::Section) {
      const TextPool::Id key = texts.Add(line.name);
      found.push_back({key, texts.Add(line.value)});
      continue;
    }
    Append(section, found);
    found.clear();
    section = FindOrAddSection(line.name);
  }
  Append(section, found);
}

/// A section that stands in the file twice is one.
void GenericDraft::Append(std::size_t section, std::span<const SectionPool::Line> lines) {
  SectionPool::Id& known = section == kNone ? preamble_ : sections_[section].lines;
  const std::span<const SectionPool::Line> before = pool_->Lines(known);
  if (before.empty()) {
    known = pool_->Add(lines);
    return;
  }
  std::vector<SectionPool::Line> all(before.begin(), before.end());
  all.insert(all.end(), lines.begin(), lines.end());
  known = pool_->Add(all);
}

std::size_t GenericDraft::FindSection(StringView name) const {
  name = TrimBlanksAndTabs(name);
  const std::size_t number = EntryNumberOf(name);
  if (number > 0 && number <= entries_.size()) return entries_[number - 1];
  const TextPool& texts = pool_->Texts();
  const auto found = std::find_if(others_.begin(), others_.end(), [&](std::uint32_t section) {
    return EqualsIgnoreCase(texts.Text(sections_[section].name), name);
  });
  return found == others_.end() ? kNone : *found;
}

std::size_t GenericDraft::FindEntry(std::size_t number) const {
  if (number > 0 && number <= entries_.size()) return entries_[number - 1];
  return others_.empty() ? kNone : FindSection(EntrySection(static_cast<std::int64_t>(number)));
}

std::size_t GenericDraft::FindOrAddSection(StringView name) {
  name = TrimBlanksAndTabs(name);
  const std::size_t found = FindSection(name);
  if (found != kNone) return found;
  const bool isNext = EntryNumberOf(name) == entries_.size() + 1;
  (isNext ? entries_ : others_).push_back(static_cast<std::uint32_t>(sections_.size()));
  sections_.push_back({pool_->Texts().Add(name), 0});
  return sections_.size() - 1;
}

std::size_t GenericDraft::FindOrAddEntry(std::size_t number) {
  const std::size_t found = FindEntry(number);
  if (found != kNone) return found;
  return FindOrAddSection(EntrySection(static_cast<std::int64_t>(number)));
}

std::size_t GenericDraft::CountEntries() const {
  std::size_t count = entries_.size();
  while (FindEntry(count + 1) != kNone) ++count;
  return count;
}

std::span<const SectionPool::Line> GenericDraft::Lines(std::size_t section) const {
  return pool_->Lines(sections_.at(section).lines);
}

std::optional<StringView> GenericDraft::Value(std::size_t section, StringView key) const {
  return ValueIn(pool_->Texts(), Lines(section), key);
}

void GenericDraft::SetValue(std::size_t section, StringView key, StringView value) {
  SectionEdit edit(*this, section);
  edit.SetValue(key, value);
  edit.Keep();
}

void GenericDraft::MoveTo(SectionPool& pool) {
  if (pool_ == nullptr) return;  // it has none
  preamble_ = pool.Add(pool_->Lines(preamble_));
  for (Section& section : sections_) section.lines = pool.Add(pool_->Lines(section.lines));
}

String GenericDraft::ToText() const {
  const TextPool& texts = pool_->Texts();
  String text;
  const auto append = [&](SectionPool::Id section) {
    for (const SectionPool::Line& line : pool_->Lines(section)) {
      if (line.key != 0) text.append(texts.Text(line.key)).append(1, u'=');
      text.append(texts.Text(line.value)).append(u"\r\n");
    }
  };
  append(preamble_);
  for (const Section& section : sections_) {
    text.append(1, u'[').append(texts.Text(section.name)).append(u"]\r\n");
    append(section.lines);
  }
  return text;
}

SectionEdit::SectionEdit(GenericDraft& draft, std::size_t section)
    : draft_(draft), section_(section) {
  const std::span<const SectionPool::Line> lines = draft.Lines(section);
  lines_.assign(lines.begin(), lines.end());
}

std::optional<StringView> SectionEdit::Value(StringView key) const {
  return ValueIn(draft_.Pool().Texts(), lines_, key);
}

void SectionEdit::SetValue(StringView key, StringView value) {
  TextPool& texts = draft_.Pool().Texts();
  const TextPool::Id stored = texts.Add(IsStoredAsIs(value) ? value : Stored(value));
  const std::size_t found = FindKey(texts, lines_, key);
  if (found < lines_.size()) {
    lines_[found].value = stored;  // the key keeps its own spelling
  } else {
    lines_.push_back({texts.Add(key), stored});
  }
}

void SectionEdit::Keep() {
  draft_.sections_[section_].lines = draft_.Pool().Add(lines_);
}

}  // namespace norvo

#include "services/IniDocument.h"

#include <algorithm>
#include <utility>

namespace norvo {
namespace {

// Up to this many lines a search costs less than an index.
constexpr std::size_t kSearchedLines = 32;

StringView TrimBlanksAndTabs(StringView text) {
  const auto isBlank = [](char16_t unit) { return unit == u' ' || unit == u'\t'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

StringView WithoutLineEnd(StringView value) {
  if (value.ends_with(u'\n')) value.remove_suffix(1);
  if (value.ends_with(u'\r')) value.remove_suffix(1);
  return value;
}

/// Every line end within becomes one blank.
String OnOneLine(StringView value) {
  String line;
  line.reserve(value.size());
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == u'\r' && i + 1 < value.size() && value[i + 1] == u'\n') continue;
    const bool lineEnd = value[i] == u'\r' || value[i] == u'\n';
    line.push_back(lineEnd ? u' ' : value[i]);
  }
  return line;
}

void AppendLine(String& text, StringView line) {
  text += line;
  text += u"\r\n";
}

}  // namespace

IniDocument::Line::Line(StringView key, StringView value) : keyLength_(key.size()) {
  text_.reserve(key.size() + 1 + value.size());
  text_.append(key).append(1, u'=').append(value);
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
    lines.emplace_back(line);
    return;
  }
  lines.emplace_back(TrimBlanksAndTabs(content.substr(0, equals)),
                     TrimBlanksAndTabs(content.substr(equals + 1)));
}

std::size_t IniDocument::FindSection(StringView name) const {
  const auto found = byName_.find(TrimBlanksAndTabs(name));
  return found == byName_.end() ? kNone : found->second;
}

std::size_t IniDocument::FindOrAddSection(StringView name) {
  name = TrimBlanksAndTabs(name);
  const std::size_t found = FindSection(name);
  if (found != kNone) return found;
  sections_.push_back({String(name), {}, {}, 0});
  byName_.emplace(String(name), sections_.size() - 1);
  return sections_.size() - 1;
}

std::size_t IniDocument::FindKey(const Section& section, StringView key) {
  if (section.lines.size() <= kSearchedLines) {
    for (std::size_t i = 0; i < section.lines.size(); ++i) {
      const Line& line = section.lines[i];
      if (line.IsKey() && EqualsIgnoreCase(line.Key(), key)) return i;
    }
    return kNone;
  }
  for (; section.indexed < section.lines.size(); ++section.indexed) {
    const Line& line = section.lines[section.indexed];
    if (line.IsKey()) section.byKey.emplace(line.Key(), section.indexed);
  }
  const auto found = section.byKey.find(key);
  return found == section.byKey.end() ? kNone : found->second;
}

std::optional<StringView> IniDocument::Value(std::size_t section, StringView key) const {
  const Section& holder = sections_.at(section);
  const std::size_t position = FindKey(holder, TrimBlanksAndTabs(key));
  if (position == kNone) return std::nullopt;
  return holder.lines[position].Value();
}

std::vector<StringView> IniDocument::Keys(std::size_t section) const {
  std::vector<StringView> keys;
  for (const Line& line : sections_.at(section).lines) {
    if (line.IsKey()) keys.push_back(line.Key());
  }
  return keys;
}

void IniDocument::SetValue(std::size_t section, StringView key, StringView value) {
  Section& target = sections_.at(section);
  key = TrimBlanksAndTabs(key);
  const StringView content = WithoutLineEnd(value);
  const bool oneLine = content.find_first_of(u"\r\n") == StringView::npos;
  const String joined = oneLine ? String() : OnOneLine(content);
  const StringView stored = TrimBlanksAndTabs(oneLine ? content : StringView(joined));
  if (const std::size_t position = FindKey(target, key); position != kNone) {
    Line& line = target.lines[position];
    line = Line(String(line.Key()), stored);  // keeps the key's own spelling
    return;
  }
  target.lines.emplace_back(key, stored);
  if (content.size() != value.size()) target.lines.emplace_back(StringView());
}

String IniDocument::ToText() const {
  String text;
  const auto appendLines = [&text](const std::vector<Line>& lines) {
    for (const Line& line : lines) AppendLine(text, line.Text());
  };
  appendLines(preamble_);
  for (const Section& section : sections_) {
    text += u'[';
    text += section.name;
    AppendLine(text, u"]");
    appendLines(section.lines);
  }
  return text;
}

}  // namespace norvo

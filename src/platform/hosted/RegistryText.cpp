#include "platform/hosted/RegistryText.h"

#include <algorithm>

#include "platform/hosted/RegistryValueText.h"

namespace norvo {
namespace {

constexpr StringView kHeader = u"Windows Registry Editor Version 5.00";
constexpr StringView kOldHeader = u"REGEDIT4";

// The two limits are those of Windows, so that no registry that was exported there has more; they
// also bound what one line of a hostile text can cost.
constexpr std::size_t kMostKeyLevels = 512;
constexpr std::size_t kLongestKeyName = 255;

struct HiveName {
  StringView name;
  Hive hive;
};

// The first name of each hive is the one that is written.
constexpr HiveName kHiveNames[] = {
    {u"HKEY_CURRENT_USER", Hive::CurrentUser},   {u"HKCU", Hive::CurrentUser},
    {u"HKEY_LOCAL_MACHINE", Hive::LocalMachine}, {u"HKLM", Hive::LocalMachine},
    {u"HKEY_CLASSES_ROOT", Hive::ClassesRoot},   {u"HKCR", Hive::ClassesRoot}};

StringView NameOf(Hive hive) {
  const auto* const row = std::find_if(std::begin(kHiveNames), std::end(kHiveNames),
                                       [hive](const HiveName& each) { return each.hive == hive; });
  return row->name;
}

StringView TrimBlanks(StringView text) {
  return Trim(text, IsRegistryBlank);
}

StringView WithoutTrailingSeparator(StringView key) {
  return TrimEnd(key, [](char16_t unit) { return unit == u'\\'; });
}

/// True when a registry can hold a key as deep, and with names as long.
bool IsWithinLimits(StringView key) {
  std::size_t levels = 0;
  while (!key.empty()) {
    if (TakeKeyName(key).size() > kLongestKeyName || ++levels > kMostKeyLevels) return false;
  }
  return true;
}

/// True when a section can carry the key's name.
bool IsWritableKey(StringView key) {
  return IsWithinLimits(key) && !key.empty() && key.front() != u'\\' &&
         key.find(u"\\\\") == StringView::npos &&
         std::none_of(key.begin(), key.end(), IsAsciiControl);
}

/// Behind the last line that is not blank; behind the first when the last one wants to go on, so
/// that it does not swallow what is written there.
std::size_t ContentEnd(StringView text) {
  std::size_t end = text.size();
  while (end > 0 && IsRegistryBlank(text[end - 1])) --end;
  if (end > 0 && text[end - 1] == u'\\') end = 0;
  const std::size_t feed = text.find(u'\n', end);
  return feed == StringView::npos ? text.size() : feed + 1;
}

/// How many lines begin with a bracket; few of them are no section.
std::size_t CountBrackets(StringView text) {
  std::size_t count = 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    count += static_cast<std::size_t>(text[i] == u'[' && text[i - 1] == u'\n');
  }
  return count;
}

}  // namespace

RegistryText::RegistryText() : RegistryText(String()) {}

RegistryText::RegistryText(String text) : original_(std::move(text)) {
  if (TrimBlanks(original_).empty()) original_ = String(kHeader) + u"\r\n\r\n";
  const StringView all = original_;
  const std::size_t feed = all.find(u'\n');
  if (feed != StringView::npos && (feed == 0 || all[feed - 1] != u'\r')) lineEnd_ = u"\n";
  const StringView content = TrimBlanks(all);
  const StringView first = TrimBlanks(content.substr(0, content.find_first_of(u"\r\n")));
  valid_ = EqualsIgnoreCase(first, kHeader) || EqualsIgnoreCase(first, kOldHeader);
  if (valid_) {
    Parse();
  } else {
    sections_.push_back({all});
  }
}

void RegistryText::Parse() {
  const StringView all = original_;
  // A million of them would be in memory twice whenever they outgrow their room.
  sections_.reserve(CountBrackets(all) + 1);
  StringView header;
  std::size_t start = 0;
  for (std::size_t at = 0; at < all.size();) {
    const std::size_t end = ReadRegistryLine(all, at).end;
    const StringView line = TrimBlanks(all.substr(at, end - at));
    if (line.starts_with(u'[')) {
      AddSection(header, all.substr(start, at - start));
      header = line;
      start = at;
    }
    at = end;
  }
  AddSection(header, all.substr(start));
}

void RegistryText::AddSection(StringView header, StringView text) {
  sections_.push_back({text});
  const std::size_t close = header.rfind(u']');
  if (close == StringView::npos || header.starts_with(u"[-")) return;  // a deletion is no key
  const StringView path = header.substr(1, close - 1);
  const StringView hiveName = path.substr(0, path.find(u'\\'));
  for (const HiveName& row : kHiveNames) {
    if (!EqualsIgnoreCase(row.name, hiveName)) continue;
    const StringView key =
        WithoutTrailingSeparator(path.substr(std::min(hiveName.size() + 1, path.size())));
    if (IsWithinLimits(key)) AppendTo(keys_.AddViewed(row.hive, key), sections_.size() - 1);
  }
}

void RegistryText::AppendTo(std::size_t key, std::size_t section) {
  if (key >= ranges_.size()) ranges_.resize(keys_.Count());
  SectionRange& range = ranges_[key];
  const auto number = static_cast<std::uint32_t>(section);
  if (range.first == 0) {
    range.first = number;
  } else {
    sections_[range.last].next = number;
  }
  range.last = number;
}

RegistryText::SectionRange RegistryText::SectionsOf(std::size_t key) const {
  return key < ranges_.size() ? ranges_[key] : SectionRange();
}

void RegistryText::Change(std::size_t section, String text) {
  sections_[section].text = changed_[section] = std::move(text);
}

bool RegistryText::KeyExists(Hive hive, StringView key) const {
  return keys_.Find(hive, WithoutTrailingSeparator(key)).has_value();
}

const RegistryText::Values& RegistryText::ValuesOf(std::size_t key) const {
  const auto known = values_.find(key);
  if (known != values_.end()) return known->second;
  Values& values = values_[key];
  for (std::size_t section = SectionsOf(key).first; section != 0;
       section = sections_[section].next) {
    const StringView text = sections_[section].text;
    for (std::size_t at = 0; at < text.size();) {
      RegistryLine line = ReadRegistryLine(text, at);
      if (line.name) {
        values.insert_or_assign(std::move(*line.name), Location{section, at, line.end, line.data});
      }
      at = line.end;
    }
  }
  return values;
}

std::optional<RegistryValue> RegistryText::Read(Hive hive, StringView key, StringView name) const {
  const std::optional<std::size_t> found = keys_.Find(hive, WithoutTrailingSeparator(key));
  if (!found) return std::nullopt;
  const Values& values = ValuesOf(*found);
  const auto value = values.find(name);
  if (value == values.end()) return std::nullopt;
  const Location& at = value->second;
  return ParseRegistryData(sections_[at.section].text.substr(at.data, at.end - at.data));
}

/// The section that takes a further value of the key; a new one at the text's end when the key was
/// only known by those below it.
std::size_t RegistryText::SectionForNewValue(Hive hive, StringView path, std::size_t key) {
  if (const SectionRange known = SectionsOf(key); known.last != 0) return known.last;
  String before(sections_.back().text);
  if (!before.empty() && !before.ends_with(u'\n')) before += lineEnd_;
  const StringView content =
      StringView(before).substr(0, before.size() - std::min(before.size(), lineEnd_.size()));
  if (!content.ends_with(u'\n')) before += lineEnd_;  // a blank line between two keys
  Change(sections_.size() - 1, std::move(before));
  String text = u"[" + String(NameOf(hive));
  if (!path.empty()) text.append(u"\\").append(path);
  sections_.emplace_back();
  Change(sections_.size() - 1, text.append(u"]").append(lineEnd_).append(lineEnd_));
  AppendTo(key, sections_.size() - 1);
  return sections_.size() - 1;
}

bool RegistryText::CreateKey(Hive hive, StringView key) {
  if (KeyExists(hive, key)) return true;
  key = WithoutTrailingSeparator(key);
  if (!valid_ || !IsWritableKey(key)) return false;
  SectionForNewValue(hive, key, keys_.AddCopied(hive, key));
  return true;
}

bool RegistryText::Write(Hive hive, StringView key, StringView name, const RegistryValue& value) {
  std::optional<String> line = FormatRegistryValue(name, value);
  key = WithoutTrailingSeparator(key);
  if (!valid_ || !line || (!key.empty() && !IsWritableKey(key))) return false;
  line->append(lineEnd_);
  const std::size_t target = keys_.AddCopied(hive, key);
  const Values& values = ValuesOf(target);
  const auto found = values.find(name);
  Location at;
  if (found != values.end()) {
    at = found->second;
  } else {
    at.section = SectionForNewValue(hive, key, target);
    at.start = at.end = ContentEnd(sections_[at.section].text);
  }
  String text(sections_[at.section].text);
  if (at.start == text.size() && !text.ends_with(u'\n')) line->insert(0, lineEnd_);
  Change(at.section, text.replace(at.start, at.end - at.start, *line));
  values_.erase(target);
  return true;
}

void RegistryText::UpgradeHeader() {
  String text(sections_.front().text);
  const std::size_t old = FindIgnoreCase(text, kOldHeader);
  if (old != String::npos && TrimBlanks(StringView(text).substr(0, old)).empty()) {
    Change(0, text.replace(old, kOldHeader.size(), kHeader));
  }
}

}  // namespace norvo

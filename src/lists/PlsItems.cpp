#include "lists/PlsItems.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>

#include "lists/ItemText.h"
#include "text/Number.h"

namespace norvo {
namespace {

/// A section that lists items, and the word before the number in the keys of their references.
struct ListSection {
  StringView name;
  StringView key;
};
constexpr ListSection kSections[] = {{u"playlist", u"File"}, {u"Reference", u"Ref"}};

struct NumberedValue {
  std::uint64_t number = 0;
  StringView value;
};

/// What a section holds, in the order of its lines, equal keys included.
struct SectionKeys {
  std::vector<NumberedValue> references;
  std::vector<NumberedValue> titles;
  std::optional<StringView> count;
};

/// Name of the section that a line starts; nothing for any other line.
std::optional<StringView> SectionName(StringView line) {
  const std::size_t close = line.rfind(u']');
  if (!line.starts_with(u'[') || close == StringView::npos) return std::nullopt;
  return CleanText(line.substr(1, close - 1));
}

/// The number of a key such as "File12", which has no leading zeros; 0 for other keys.
std::uint64_t NumberOfKey(StringView key, StringView word) {
  constexpr std::size_t kMostDigits = 18;  // as many as surely fit
  if (!EqualsIgnoreCase(key.substr(0, word.size()), word)) return 0;
  const StringView digits = key.substr(word.size());
  if (digits.empty() || digits.size() > kMostDigits || digits.front() == u'0') return 0;
  std::uint64_t number = 0;
  for (const char16_t unit : digits) {
    if (!IsDigit(unit)) return 0;
    number = number * 10 + (unit - u'0');
  }
  return number;
}

void AddKey(SectionKeys& keys, StringView referenceKey, StringView line) {
  const std::size_t equals = line.find(u'=');
  if (equals == StringView::npos || line.front() == u';') return;
  const StringView key = CleanText(line.substr(0, equals));
  const StringView value = CleanText(line.substr(equals + 1));
  if (const std::uint64_t number = NumberOfKey(key, referenceKey); number != 0) {
    keys.references.push_back({number, value});
  } else if (const std::uint64_t titled = NumberOfKey(key, u"Title"); titled != 0) {
    keys.titles.push_back({titled, value});
  } else if (!keys.count && EqualsIgnoreCase(key, u"NumberOfEntries")) {
    keys.count = value;
  }
}

SectionKeys ReadSection(StringView text, const ListSection& section) {
  SectionKeys keys;
  bool inside = false;
  while (!text.empty()) {
    const StringView line = CleanText(TakeLine(text));
    if (const std::optional<StringView> name = SectionName(line)) {
      inside = EqualsIgnoreCase(*name, section.name);
    } else if (inside) {
      AddKey(keys, section.key, line);
    }
  }
  return keys;
}

/// By number; of equal ones only the first.
void Order(std::vector<NumberedValue>& values) {
  const auto less = [](const NumberedValue& left, const NumberedValue& right) {
    return left.number < right.number;
  };
  const auto equal = [](const NumberedValue& left, const NumberedValue& right) {
    return left.number == right.number;
  };
  if (!std::is_sorted(values.begin(), values.end(), less)) {
    std::stable_sort(values.begin(), values.end(), less);
  }
  values.erase(std::unique(values.begin(), values.end(), equal), values.end());
}

/// The last number that counts. A count that makes no sense limits nothing.
double LastNumber(const SectionKeys& keys) {
  const double count = keys.count ? ParseNumber(*keys.count).value_or(0) : 0;
  return count > 0 ? count : std::numeric_limits<double>::infinity();
}

std::vector<ListedItem> SectionItems(SectionKeys keys, std::size_t most) {
  Order(keys.references);
  Order(keys.titles);
  const double last = LastNumber(keys);
  std::vector<ListedItem> items;
  auto title = keys.titles.cbegin();
  for (const auto& [number, reference] : keys.references) {
    if (static_cast<double>(number) > last || items.size() == most) break;
    if (reference.empty()) continue;
    ListedItem& item = items.emplace_back();
    item.references.emplace_back(reference);
    while (title != keys.titles.cend() && title->number < number) ++title;
    if (title != keys.titles.cend() && title->number == number) SetNames(item, title->value);
  }
  return items;
}

}  // namespace

bool IsPlsSection(StringView line) {
  const std::optional<StringView> name = SectionName(line);
  return name &&
         std::any_of(std::begin(kSections), std::end(kSections), [&](const ListSection& section) {
           return EqualsIgnoreCase(*name, section.name);
         });
}

std::vector<ListedItem> PlsItems(StringView text, std::size_t most) {
  std::vector<ListedItem> items;
  for (const ListSection& section : kSections) {
    if (items.empty()) items = SectionItems(ReadSection(text, section), most);
  }
  return items;
}

}  // namespace norvo

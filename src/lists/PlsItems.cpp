#include "lists/PlsItems.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <set>

#include "lists/ItemNumbers.h"
#include "lists/ItemText.h"

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
  std::vector<NumberedValue> lengths;
};

/// Name of the section that a line starts; nothing for any other line.
std::optional<StringView> SectionName(StringView line) {
  const std::size_t close = line.rfind(u']');
  if (!line.starts_with(u'[') || close == StringView::npos) return std::nullopt;
  return CleanText(line.substr(1, close - 1));
}

/// The number of a key such as "File12"; nothing for other keys.
std::optional<std::uint64_t> NumberOfKey(StringView key, StringView word) {
  constexpr std::size_t kMostDigits = 18;  // as many as surely fit
  if (!EqualsIgnoreCase(key.substr(0, word.size()), word)) return std::nullopt;
  const StringView digits = key.substr(word.size());
  if (digits.empty() || digits.size() > kMostDigits) return std::nullopt;
  std::uint64_t number = 0;
  for (const char16_t unit : digits) {
    if (!IsDigit(unit)) return std::nullopt;
    number = number * 10 + (unit - u'0');
  }
  return number;
}

void AddKey(SectionKeys& keys, StringView referenceKey, StringView line) {
  const std::size_t equals = line.find(u'=');
  if (equals == StringView::npos || line.front() == u';') return;
  const StringView key = CleanText(line.substr(0, equals));
  const StringView value = CleanText(line.substr(equals + 1));
  const auto take = [&](StringView word, std::vector<NumberedValue>& values) {
    if (const auto number = NumberOfKey(key, word)) values.push_back({*number, value});
  };
  take(referenceKey, keys.references);
  take(u"Title", keys.titles);
  take(u"Length", keys.lengths);
}

/// Visits the lines in all sections of the name, or with an empty name in the whole text, until
/// `visit` returns false.
template <class Visit>
void ForEachLine(StringView text, const ListSection& section, Visit&& visit) {
  bool inside = section.name.empty();
  while (!text.empty()) {
    const StringView line = CleanText(TakeLine(text));
    if (const std::optional<StringView> name = SectionName(line)) {
      inside = section.name.empty() || EqualsIgnoreCase(*name, section.name);
    } else if (inside && !visit(line)) {
      return;
    }
  }
}

SectionKeys ReadSection(StringView text, const ListSection& section) {
  SectionKeys keys;
  ForEachLine(text, section, [&](StringView line) {
    AddKey(keys, section.key, line);
    return true;
  });
  return keys;
}

/// Reads no further than the first item. Of equal numbers the first holds, though it be empty.
bool HasItems(StringView text, const ListSection& section) {
  std::set<std::uint64_t> numbers;
  bool found = false;
  ForEachLine(text, section, [&](StringView line) {
    SectionKeys keys;
    AddKey(keys, section.key, line);
    for (const NumberedValue& reference : keys.references) {
      found = numbers.insert(reference.number).second && !reference.value.empty();
    }
    return !found;
  });
  return found;
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

/// Goes through ordered values beside ordered numbers.
class ValueCursor {
 public:
  explicit ValueCursor(const std::vector<NumberedValue>& values)
      : next_(values.begin()), end_(values.end()) {}

  /// The value of a number, which is no less than the one before; empty without one.
  StringView At(std::uint64_t number) {
    while (next_ != end_ && next_->number < number) ++next_;
    return next_ != end_ && next_->number == number ? next_->value : StringView();
  }

 private:
  std::vector<NumberedValue>::const_iterator next_;
  std::vector<NumberedValue>::const_iterator end_;
};

ListedItems SectionItems(SectionKeys keys, std::size_t most) {
  Order(keys.references);
  Order(keys.titles);
  Order(keys.lengths);
  ListedItems items;
  ValueCursor titles(keys.titles);
  ValueCursor lengths(keys.lengths);
  for (const auto& [number, reference] : keys.references) {
    if (items.size() == most) break;
    if (reference.empty()) continue;
    ListedItem& item = items.Add();
    item.references.emplace_back(reference);
    SetNames(item, titles.At(number));
    item.seconds = SecondsOf(lengths.At(number));
  }
  return items;
}

constexpr ListSection kAnywhere{{}, u"File"};

bool HasListSection(StringView text) {
  while (!text.empty()) {
    if (IsPlsSection(CleanText(TakeLine(text)))) return true;
  }
  return false;
}

}  // namespace

bool IsPlsSection(StringView line) {
  const std::optional<StringView> name = SectionName(line);
  return name &&
         std::any_of(std::begin(kSections), std::end(kSections), [&](const ListSection& section) {
           return EqualsIgnoreCase(*name, section.name);
         });
}

bool HasPlsKeys(StringView text) {
  if (!HasListSection(text)) return HasItems(text, kAnywhere);
  return std::any_of(std::begin(kSections), std::end(kSections),
                     [&](const ListSection& section) { return HasItems(text, section); });
}

ListedItems PlsItems(StringView text, std::size_t most) {
  if (!HasListSection(text)) return SectionItems(ReadSection(text, kAnywhere), most);
  ListedItems items;
  for (const ListSection& section : kSections) {
    if (items.empty()) items = SectionItems(ReadSection(text, section), most);
  }
  return items;
}

}  // namespace norvo

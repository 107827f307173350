#include "readers/AsxLineParser.h"

#include <algorithm>
#include <span>

namespace norvo {
namespace {

struct PatternRow {
  StringView mark;  // the pattern is this text anywhere in the line; all begin with "<"
  AsxLineKind kind;
};

// In the order of trial.
constexpr PatternRow kInsideEntry[] = {
    {u"<Param Name", AsxLineKind::Param},    {u"<Abstract", AsxLineKind::Abstract},
    {u"<Ref Href", AsxLineKind::Ref},        {u"<Duration", AsxLineKind::Duration},
    {u"<Author", AsxLineKind::Author},       {u"<Title", AsxLineKind::Title},
    {u"<Copyright", AsxLineKind::Copyright}, {u"</Entry>", AsxLineKind::EntryEnd},
};
constexpr PatternRow kOutsideEntry[] = {
    {u"<Entry>", AsxLineKind::EntryStart},      {u"<Param name", AsxLineKind::Param},
    {u"</Entry>", AsxLineKind::EntryEnd},       {u"<Banner", AsxLineKind::Banner},
    {u"<Asx Version", AsxLineKind::AsxVersion}, {u"<Title", AsxLineKind::Title},
    {u"<Author", AsxLineKind::Author},          {u"</Asx>", AsxLineKind::AsxEnd},
};

/// The first of the rows whose mark stands in the line.
AsxLineKind KindOf(StringView line, std::span<const PatternRow> rows) {
  auto kind = AsxLineKind::Other;
  for (std::size_t at = FindUnit(line, u'<'); at != StringView::npos && !rows.empty();
       at = FindUnit(line, u'<', at + 1)) {
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const PatternRow& candidate) {
      return EqualsIgnoreCase(line.substr(at, candidate.mark.size()), candidate.mark);
    });
    if (row == rows.end()) continue;
    kind = row->kind;
    rows = rows.first(static_cast<std::size_t>(row - rows.begin()));  // only these go before it
  }
  return kind;
}

/// What `DataCop::Between` gives, without a text of its own.
StringView Between(StringView text, char16_t open, char16_t close) {
  const std::size_t start = FindUnit(text, open);
  if (start == StringView::npos) return {};
  const StringView rest = text.substr(start + 1);
  return Trim(rest.substr(0, FindUnit(rest, close)));
}

StringView ElementName(StringView line) {
  const bool hasAttributes = line.find(u'=') != StringView::npos;
  return Between(line, u'<', hasAttributes ? u' ' : u'>');
}

struct ElementRow {
  StringView name;
  StringView attribute;  // empty: the element's text
};

constexpr ElementRow kElements[] = {
    {u"Abstract", {}},    {u"Author", {}},      {u"Copyright", {}},
    {u"Title", {}},       {u"Asx", u"Version"}, {u"Duration", u"value"},
    {u"Banner", u"href"}, {u"Ref", u"href"},    {u"MoreInfo", u"href"},
};

}  // namespace

AsxLineKind KindInsideEntry(StringView line) {
  return KindOf(line, kInsideEntry);
}
AsxLineKind KindOutsideEntry(StringView line) {
  return KindOf(line, kOutsideEntry);
}
bool HoldsBannerEnd(StringView line) {
  return ContainsIgnoreCase(line, u"</Banner>");
}
bool IsBannerEnd(StringView line) {
  return EqualsIgnoreCase(line, u"</Banner>");
}

StringView AttributeValue(StringView line, StringView attribute) {
  const std::size_t at = FindIgnoreCase(line, attribute);
  if (at == StringView::npos) return {};
  return Between(line.substr(at + attribute.size()), u'"', u'"');
}

StringView ElementText(StringView line) {
  return Between(line, u'>', u'<');
}

StringView ElementValue(StringView line) {
  const StringView name = ElementName(line);
  for (const ElementRow& row : kElements) {
    if (!EqualsIgnoreCase(row.name, name)) continue;
    return row.attribute.empty() ? ElementText(line) : AttributeValue(line, row.attribute);
  }
  return {};
}

}  // namespace norvo

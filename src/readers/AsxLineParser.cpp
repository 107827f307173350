#include "readers/AsxLineParser.h"

#include <algorithm>
#include <span>

#include "services/DataCop.h"

namespace norvo {
namespace {

struct PatternRow {
  StringView mark;  // the pattern is this text anywhere in the line
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

AsxLineKind KindOf(StringView line, std::span<const PatternRow> rows) {
  // Every pattern begins with this; most lines of other files lack it.
  if (line.find(u'<') == StringView::npos) return AsxLineKind::Other;
  const auto row = std::find_if(rows.begin(), rows.end(), [line](const PatternRow& candidate) {
    return ContainsIgnoreCase(line, candidate.mark);
  });
  return row == rows.end() ? AsxLineKind::Other : row->kind;
}

String ElementName(StringView line) {
  const bool hasAttributes = line.find(u'=') != StringView::npos;
  return DataCop::Between(line, u"<", hasAttributes ? u" " : u">");
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

String AttributeValue(StringView line, StringView attribute) {
  const std::size_t at = FindIgnoreCase(line, attribute);
  if (at == StringView::npos) return {};
  return DataCop::Between(line.substr(at + attribute.size()), u"\"", u"\"");
}

String ElementText(StringView line) {
  return DataCop::Between(line, u">", u"<");
}

String ElementValue(StringView line) {
  const String name = ElementName(line);
  for (const ElementRow& row : kElements) {
    if (!EqualsIgnoreCase(row.name, name)) continue;
    return row.attribute.empty() ? ElementText(line) : AttributeValue(line, row.attribute);
  }
  return {};
}

}  // namespace norvo

#include "lists/MarkupMending.h"

#include <unordered_map>
#include <utility>
#include <vector>

#include "lists/MarkupScanner.h"

namespace norvo {
namespace {

bool IsXmlNameUnit(char16_t unit) {
  const char16_t lower = ToLowerAscii(unit);
  return (lower >= u'a' && lower <= u'z') || IsDigit(unit) || unit == u'_' || unit == u':' ||
         unit == u'-' || unit == u'.';
}

/// A name that XML allows.
String PlainName(StringView name) {
  String plain(name);
  for (char16_t& unit : plain) {
    if (!IsXmlNameUnit(unit)) unit = u'_';
  }
  const bool startsWell = !plain.empty() && (plain.front() == u'_' || plain.front() >= u'A');
  return startsWell ? plain : u'_' + plain;
}

/// Entities stay.
void AppendText(String& mended, StringView text) {
  for (const char16_t unit : text) {
    if (unit == u'<') {
      mended += u"&lt;";
    } else {
      mended += unit;
    }
  }
}

/// In the quotes that it does not have, as far as it can be.
void AppendValue(String& mended, StringView value) {
  const bool hasQuotes = value.find(u'"') != StringView::npos;
  const char16_t quote = hasQuotes ? u'\'' : u'"';
  mended += quote;
  for (std::size_t end = value.find(u'\''); hasQuotes && end != StringView::npos;
       end = value.find(u'\'')) {
    AppendText(mended, value.substr(0, end));
    mended += u"&apos;";
    value.remove_prefix(end + 1);
  }
  AppendText(mended, value);
  mended += quote;
}

/// Elements that are open, the innermost last.
class OpenElements {
 public:
  void Open(String name) {
    ++counts_[name];
    names_.push_back(std::move(name));
  }

  /// Closes all down to the innermost of that name; nothing when none is open.
  void Close(StringView name, String& mended) {
    if (counts_.find(name) == counts_.end() || counts_.find(name)->second == 0) return;
    while (!EqualsIgnoreCase(names_.back(), name)) CloseLast(mended);
    CloseLast(mended);
  }

  void CloseAll(String& mended) {
    while (!names_.empty()) CloseLast(mended);
  }

 private:
  void CloseLast(String& mended) {
    mended += u"</" + names_.back() + u'>';
    --counts_[names_.back()];
    names_.pop_back();
  }

  std::vector<String> names_;
  std::unordered_map<String, std::size_t, CaselessHash, CaselessEqual> counts_;
};

void AppendStart(String& mended, const MarkupScanner& tags, StringView name) {
  mended += u'<';
  mended += name;
  for (const MarkupScanner::NamedValue& attribute : tags.Attributes()) {
    mended += u' ' + PlainName(attribute.name) + u'=';
    AppendValue(mended, attribute.value);
  }
  mended += tags.IsSelfClosing() ? u"/>" : u">";
}

}  // namespace

String MendedMarkup(StringView text) {
  String mended;
  OpenElements open;
  MarkupScanner tags(text);
  while (tags.Next()) {
    AppendText(mended, tags.TextBefore());
    String name = PlainName(tags.Name());
    if (tags.IsEnd()) {
      open.Close(name, mended);
    } else {
      AppendStart(mended, tags, name);
      if (!tags.IsSelfClosing()) open.Open(std::move(name));
    }
  }
  AppendText(mended, tags.TextBefore());
  open.CloseAll(mended);
  return mended;
}

}  // namespace norvo

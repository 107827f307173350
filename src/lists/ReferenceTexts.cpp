#include "lists/ReferenceTexts.h"

#include <algorithm>
#include <optional>
#include <string>

#include "lists/ItemText.h"
#include "lists/XmlEntities.h"
#include "text/Ascii.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

constexpr StringView kDigits = u"0123456789ABCDEF";

/// Length of the percent sign and its digits.
constexpr std::size_t kEscape = 3;

/// The byte that the text begins with in the form %xx.
std::optional<char> EscapedByte(StringView text) {
  if (text.size() < kEscape || text.front() != u'%') return std::nullopt;
  const std::size_t high = kDigits.find(ToUpper(text[1]));
  const std::size_t low = kDigits.find(ToUpper(text[2]));
  if (high == StringView::npos || low == StringView::npos) return std::nullopt;
  return static_cast<char>(high * kDigits.size() + low);
}

String DecodeBytes(const std::string& bytes, const CodePage& page) {
  std::optional<String> text = FromUtf8(bytes);
  return text ? *std::move(text) : page.Decode(bytes);
}

String DecodeAsUtf8(StringView text, const CodePage& page) {
  if (IsAscii(text) || !page.Fits(text)) return String(text);
  return FromUtf8(page.Encode(text)).value_or(String(text));
}

String WithoutQuotes(StringView text) {
  text = CleanText(text);
  if (text.size() > 1 && text.front() == u'\'' && text.back() == u'\'') {
    text = text.substr(1, text.size() - 2);
  }
  // No name has a double quote: one alone is off as well.
  if (text.starts_with(u'"')) text.remove_prefix(1);
  if (text.ends_with(u'"')) text.remove_suffix(1);
  return String(CleanText(text));
}

/// True for a text that none of the decodings changes: most are, and decoding them all the same
/// would be most of the work.
bool MeansItself(StringView text) {
  const auto isPlain = [](char16_t unit) {
    return unit < 0x80 && unit != u'&' && unit != u'%' && unit != u'"' && unit != u'\'';
  };
  return std::all_of(text.begin(), text.end(), isPlain) && CleanText(text).size() == text.size();
}

}  // namespace

String DecodePercent(StringView text, const CodePage& page) {
  String decoded;
  decoded.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    std::string bytes;
    while (const std::optional<char> byte = EscapedByte(text.substr(at))) {
      bytes.push_back(*byte);
      at += kEscape;
    }
    if (bytes.empty()) {
      decoded.push_back(text[at++]);
    } else {
      decoded += DecodeBytes(bytes, page);
    }
  }
  return decoded;
}

std::vector<String> ReferenceTexts(StringView reference, const CodePage& page) {
  std::vector<String> texts{String(reference)};
  if (MeansItself(reference)) return texts;
  const auto addChanged = [&texts](auto&& change) {
    for (std::size_t i = 0, had = texts.size(); i < had; ++i) {
      String changed = change(texts[i]);
      const bool isNew = std::find(texts.begin(), texts.end(), changed) == texts.end();
      if (isNew) texts.push_back(std::move(changed));
    }
  };
  addChanged([](StringView text) { return DecodeEntities(text); });
  addChanged([&page](StringView text) { return DecodePercent(text, page); });
  addChanged([&page](StringView text) { return DecodeAsUtf8(text, page); });
  addChanged([](StringView text) { return WithoutQuotes(text); });
  // Bytes of the page can be valid UTF-8 by chance.
  const bool maybeOfPage = !IsAscii(reference);
  if (maybeOfPage) texts.push_back(page.Decode(ToUtf8(reference)));
  return texts;
}

}  // namespace norvo

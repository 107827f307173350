#pragma once

#include "text/Text.h"

namespace norvo {

/// What a line of an ASX file is taken for: the first pattern that it matches decides, whatever
/// else stands on the line.
enum class AsxLineKind {
  Other,
  Param,
  Abstract,
  Ref,
  Duration,
  Author,
  Title,
  Copyright,
  EntryStart,
  EntryEnd,
  Banner,
  AsxVersion,
  AsxEnd
};

/// Kind of a line inside an entry.
AsxLineKind KindInsideEntry(StringView line);
/// Kind of a line outside entries and banners.
AsxLineKind KindOutsideEntry(StringView line);
/// True for a line that holds "</Banner>" anywhere.
bool HoldsBannerEnd(StringView line);
/// True for a line that is "</Banner>" and nothing else.
bool IsBannerEnd(StringView line);

/// The first double-quoted text behind the attribute's name, as a view of the line; empty when the
/// line lacks it. Single quotes and bare values are not recognised.
StringView AttributeValue(StringView line, StringView attribute);

/// The text between the first ">" and the next "<", as a view of the line.
StringView ElementText(StringView line);

/// The value that a line yields by its element's name: the text of Abstract, Author, Copyright and
/// Title; the version of Asx; the value of Duration; the href of Banner, Ref and MoreInfo; empty
/// for any other. A line that holds "=" has its name end at the first blank, so that an Abstract
/// with "=" in its text yields nothing: intended.
StringView ElementValue(StringView line);

}  // namespace norvo

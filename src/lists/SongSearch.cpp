#include "lists/SongSearch.h"

#include <algorithm>
#include <span>
#include <utility>

#include "lists/NameSpelling.h"
#include "lists/ReferencePaths.h"
#include "lists/ReferenceTexts.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// "C:" or "C|", whatever stands before it: a scheme, a host, a mark of long paths.
bool IsDriveName(StringView name) {
  return name.size() == 2 && HasDrive(String{name[0], name[1] == u'|' ? u':' : name[1]});
}

/// Number of whole names at the end that both keys have.
std::size_t CommonNames(StringView left, StringView right) {
  std::size_t names = 0;
  for (auto a = left.rbegin(), b = right.rbegin();
       a != left.rend() && b != right.rend() && *a == *b; ++a, ++b) {
    if (*a == u'\\') ++names;
  }
  return names;
}

}  // namespace

SongSearch::SongSearch(std::vector<String> mediaFiles, const CodePage& page)
    : files_(std::move(mediaFiles)), page_(page) {
  keys_.reserve(files_.size());
  for (const String& file : files_) {
    keys_.push_back(KeyOf(file).text);
    byName_[String(LastComponent(keys_.back()))].push_back(keys_.size() - 1);
  }
}

SongSearch::Found SongSearch::Find(const String& reference) const {
  if (IsInternetAddress(reference)) return {};
  Match best;
  for (const String& text : ReferenceTexts(reference, page_)) {
    // Of equal ones the first: the texts come in the order of their likelihood.
    Match match = FindKey(KeyOf(text));
    if (match.names > best.names) best = std::move(match);
  }
  return Chosen(best.files);
}

SongSearch::Key SongSearch::KeyOf(StringView path) {
  Key key;
  if (EqualsIgnoreCase(path.substr(0, kFileScheme.size()), kFileScheme)) {
    path.remove_prefix(kFileScheme.size());
  }
  key.isFull = !path.empty() && IsSeparator(path.front());
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(u"\\/"), path.size());
    const StringView name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (IsDriveName(name)) {
      key = {{}, true};
    } else if (name == u"..") {
      key.text.resize(std::min(key.text.rfind(u'\\'), key.text.size()));
    } else if (!WithoutTrail(name).empty()) {
      key.text += u'\\' + FoldedSpelling(WithoutTrail(name));
    }
  }
  return key;
}

SongSearch::Match SongSearch::FindKey(const Key& key) const {
  Match match;
  const auto named = byName_.find(String(LastComponent(key.text)));
  if (named == byName_.end()) return match;
  for (const std::size_t file : named->second) {
    const bool isWhole = key.isFull && keys_[file] == key.text;
    const std::size_t names = isWhole ? kWholePath : CommonNames(keys_[file], key.text);
    if (names > match.names) match = {names, {}};
    if (names == match.names) match.files.push_back(file);
  }
  return match;
}

SongSearch::Found SongSearch::Chosen(const std::vector<std::size_t>& files) const {
  if (files.empty()) return {};
  constexpr std::size_t kMostTold = 10;  // who chooses by hand looks at no more
  Found found{files.size() == 1 ? Kind::Unique : Kind::Several, {}, files.size()};
  for (const std::size_t file : std::span(files).first(std::min(files.size(), kMostTold))) {
    found.paths.push_back(files_[file]);
  }
  return found;
}

}  // namespace norvo

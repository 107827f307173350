#pragma once

#include <optional>
#include <vector>

#include "lists/ListedItems.h"

namespace norvo {

/// A kind of list files, by their names.
struct ListKind {
  StringView extension;  ///< with its point; a whole file name where it does not begin with one
  const char* name;      ///< for people
  std::optional<ListSyntax> syntax;  ///< nothing: not read
};

/// The kind of a file of that path, by its name alone; case ignored. Null for all that are no
/// lists.
const ListKind* KindOf(StringView path);

/// What the names of list files end in; a file that ends so need not be a list, see KindOf.
std::vector<StringView> ListEndings();

/// Extension of the files that are written so, with its point; of several the first.
StringView ExtensionOf(ListSyntax syntax);

}  // namespace norvo

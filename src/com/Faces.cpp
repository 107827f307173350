#include "com/Faces.h"

#include "com/Face.h"
#include "controller/HelperMan.h"
#include "model/ArtistList.h"
#include "model/PlayLists.h"

namespace norvo::com {
namespace {

using Maker = LibraryObject* (*)(const Shown&);

template <class Binding, class Class>
LibraryObject* Make(const Shown& shown) {
  return new Face<Binding, Class>(shown);
}

LibraryObject* MakeEntry(const Shown& shown) {
  return new EntryFace(shown);
}

template <class Binding, class Class>
LibraryObject* MakeFormatEntry(const Shown& shown) {
  return new FormatEntryFace<Binding, Class>(shown);
}

struct Row {
  PublicClass description;
  Maker make;
};

const std::array<Row, 10>& Rows() {
  static const std::array<Row, 10> rows{{
      {{u"helperMan", __uuidof(::helperMan)}, Make<HelperManBinding, ::helperMan>},
      {{u"PlayList", __uuidof(::PlayList)}, Make<PlayListBinding, ::PlayList>},
      {{u"PlayLists", __uuidof(::PlayLists)}, Make<PlayListsBinding, ::PlayLists>},
      {{u"Entries", __uuidof(::Entries)}, Make<EntriesBinding, ::Entries>},
      {{u"Entry", __uuidof(::Entry)}, MakeEntry},
      {{u"AsxEntry", __uuidof(::AsxEntry)}, MakeFormatEntry<AsxEntryBinding, ::AsxEntry>},
      {{u"M3UEntry", __uuidof(::M3UEntry)}, MakeFormatEntry<M3UEntryBinding, ::M3UEntry>},
      {{u"PlsEntry", __uuidof(::PlsEntry)}, MakeFormatEntry<PlsEntryBinding, ::PlsEntry>},
      {{u"ArtistList", __uuidof(::ArtistList)}, Make<ArtistListBinding, ::ArtistList>},
      {{u"ArtistItem", __uuidof(::ArtistItem)}, Make<ArtistItemBinding, ::ArtistItem>},
  }};
  return rows;
}

}  // namespace

ComPointer<LibraryObject> MakeFace(const std::shared_ptr<Apartment>& apartment,
                                   const ObjectRef& object) {
  const MemberTable* const table = object->Members();
  for (const Row& row : Rows()) {
    if (table == nullptr || table->ClassName() != row.description.name) continue;
    return ComPointer<LibraryObject>(row.make({apartment, object, *object, *table}));
  }
  throw RunTimeError(error::kCannotCreateObject);
}

std::vector<PublicClass> PublicClasses() {
  std::vector<PublicClass> classes;
  for (const Row& row : Rows()) classes.push_back(row.description);
  return classes;
}

}  // namespace norvo::com

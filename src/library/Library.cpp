#include "library/Library.h"

#include "controller/HelperMan.h"
#include "model/ArtistList.h"
#include "model/AsxEntry.h"
#include "model/Entry.h"
#include "model/PlayLists.h"
#include "playlist/PlayList.h"

namespace norvo {
namespace {

template <class Class>
ObjectRef New(Component& component) {
  return std::make_shared<Class>(component);
}

/// Of a class that asks nothing of the machine.
template <class Class>
ObjectRef NewPlain(Component&) {
  return std::make_shared<Class>();
}

constexpr CreatableClass kClasses[] = {
    {u"helperMan", New<HelperMan>},
    {u"PlayList", New<PlayList>},
    {u"PlayLists", New<PlayLists>},
    {u"Entries", NewPlain<Entries>},
    {u"Entry", New<Entry>},
    {u"AsxEntry", New<AsxEntry>},
    {u"M3UEntry", New<M3UEntry>},
    {u"PlsEntry", New<PlsEntry>},
    {u"ArtistList", NewPlain<ArtistList>},
    {u"ArtistItem", NewPlain<ArtistItem>},
};

}  // namespace

std::unique_ptr<Component> OpenLibrary(std::shared_ptr<Platform> platform) {
  return std::make_unique<Component>(std::move(platform), kClasses);
}

}  // namespace norvo

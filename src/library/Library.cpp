#include "library/Library.h"

#include "controller/HelperMan.h"
#include "model/AsxEntry.h"
#include "playlist/PlayList.h"

namespace norvo {
namespace {

template <class Class>
ObjectRef New(Component& component) {
  return std::make_shared<Class>(component);
}

constexpr CreatableClass kClasses[] = {
    {u"helperMan", New<HelperMan>},
    {u"PlayList", New<PlayList>},
    {u"Entries", [](Component&) -> ObjectRef { return std::make_shared<Entries>(); }},
    {u"Entry", New<Entry>},
    {u"AsxEntry", New<AsxEntry>},
    {u"M3UEntry", New<M3UEntry>},
    {u"PlsEntry", New<PlsEntry>},
};

}  // namespace

std::unique_ptr<Component> OpenLibrary(std::shared_ptr<Platform> platform) {
  return std::make_unique<Component>(std::move(platform), kClasses);
}

}  // namespace norvo

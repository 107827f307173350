#include "model/PlayLists.h"

namespace norvo {

void PlayLists::Add(const ObjectRef& playList) {
  if (!playList) return;
  items_.Append(playList);
  totalSongs_ = NarrowToInt32(totalSongs_ + ToDouble(playList->Get(u"TotalSongs")));
}

ObjectRef PlayLists::Item(std::int32_t index) {
  if (index > items_.Count32()) {
    component_.Machine().Messages().Show(u"Error", u"Index exceeds Collection size");
  }
  return items_.At(index);
}

const MemberTable& PlayLists::Interface() {
  using P = PlayLists;
  static const MemberTable table(u"PlayLists", {
                                                   Method<&P::Add>(u"Add", {In(u"PlayList")}),
                                                   Method<&P::Item>(u"Item", {ByRef(u"index")}),
                                                   Method<&P::Remove>(u"Remove", {ByRef(u"Name")}),
                                                   ReadOnly<&P::Count>(u"Count"),
                                                   ReadOnly<&P::TotalSongs>(u"TotalSongs"),
                                                   ReadOnly<&P::TotalPlayLists>(u"TotalPlayLists"),
                                               });
  return table;
}

}  // namespace norvo

#include "com/Face.h"

#include <algorithm>

#include "com/ComTest.h"
#include "com/Faces.h"
#include "com/HostObject.h"

namespace norvo::com {
namespace {

constexpr StringView kFormatEntries[] = {u"AsxEntry", u"M3UEntry", u"PlsEntry"};

class FaceTest : public ComTest {
 protected:
  /// The identifiers of all interfaces that an object of the class should have.
  std::vector<IID> InterfacesOf(StringView className) {
    std::vector<IID> all{IID_IUnknown,          IID_IDispatch,          IID_ISupportErrorInfo,
                         IID_IProvideClassInfo, IID_IProvideClassInfo2, LibraryObject::kIdentifier};
    all.push_back(DualOf(className));
    if (className == u"Entry") all.push_back(IID_IConnectionPointContainer);
    if (std::ranges::count(kFormatEntries, className) != 0) all.push_back(__uuidof(_Entry));
    return all;
  }
  IID DualOf(StringView className) {
    ComPointer<ITypeInfo> type;
    EXPECT_EQ(Create(className)->GetTypeInfo(0, 0, type.Receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(type->GetTypeAttr(&attributes), S_OK);
    const IID identifier = attributes->guid;
    type->ReleaseTypeAttr(attributes);
    return identifier;
  }
  static ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
  }
  static void* Query(IUnknown* object, const IID& identifier) {
    void* found = nullptr;
    EXPECT_EQ(object->QueryInterface(identifier, &found), S_OK);
    if (found != nullptr) object->Release();
    return found;
  }
};

TEST_F(FaceTest, EveryInterfaceLeadsToEveryOther) {
  for (const PublicClass& each : PublicClasses()) {
    SCOPED_TRACE(Utf8(each.name));
    const std::vector<IID> interfaces = InterfacesOf(each.name);
    const ComPointer<IUnknown> object = Create<IUnknown>(each.name);
    for (const IID& from : interfaces) {
      auto* const start = static_cast<IUnknown*>(Query(object.Get(), from));
      ASSERT_NE(start, nullptr);
      for (const IID& to : interfaces) {
        EXPECT_EQ(Query(start, to), Query(object.Get(), to)) << "always the same place";
      }
      EXPECT_EQ(Query(start, IID_IUnknown), object.Get()) << "one identity";
    }
    EXPECT_EQ(References(object.Get()), 1U);
  }
}

TEST_F(FaceTest, OtherInterfacesAreRefused) {
  for (const PublicClass& each : PublicClasses()) {
    SCOPED_TRACE(Utf8(each.name));
    const std::vector<IID> own = InterfacesOf(each.name);
    const ComPointer<IDispatch> object = Create(each.name);
    for (const IID& identifier :
         {IID_IClassFactory, IID_IMarshal, IID_IConnectionPointContainer, __uuidof(_Entry),
          __uuidof(_PlayList), __uuidof(_ArtistItem), GUID{}}) {
      if (std::ranges::count(own, identifier) != 0) continue;
      void* found = object.Get();
      EXPECT_EQ(object->QueryInterface(identifier, &found), E_NOINTERFACE);
      EXPECT_EQ(found, nullptr);
    }
    EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(References(object.Get()), 1U);
  }
}

TEST_F(FaceTest, TheLastReferenceLetsTheObjectGo) {
  for (const PublicClass& each : PublicClasses()) {
    SCOPED_TRACE(Utf8(each.name));
    std::weak_ptr<AutomationObject> watched;
    IDispatch* object = nullptr;
    {
      const ObjectRef made = apartment->Create(each.name);
      watched = made;
      object = apartment->FaceOf(made).Detach();
    }
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(CountLiveObjects(), 1);
    EXPECT_EQ(object->AddRef(), 2U);
    EXPECT_EQ(object->Release(), 1U);
    EXPECT_EQ(object->Release(), 0U);
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(CountLiveObjects(), 0);
  }
}

TEST_F(FaceTest, AnObjectHasOneFace) {
  const ObjectRef object = apartment->Create(u"PlayList");
  const ComPointer<IDispatch> first = apartment->FaceOf(object);
  EXPECT_EQ(apartment->FaceOf(object).Get(), first.Get());
  EXPECT_EQ(apartment->ObjectOf(first.Get()), object);
  const auto playList = first.As<_PlayList>();
  ComPointer<_Entries> entries, again;
  ASSERT_EQ(playList->get_PlayListEntries(entries.Receive()), S_OK);
  ASSERT_EQ(playList->get_PlayListEntries(again.Receive()), S_OK);
  EXPECT_EQ(entries.Get(), again.Get());
}

TEST_F(FaceTest, AnObjectThatWasLetGoOfOutsideGetsANewFace) {
  const ObjectRef object = apartment->Create(u"Entry");
  static_cast<void>(apartment->FaceOf(object));
  EXPECT_EQ(CountLiveObjects(), 0);
  EXPECT_EQ(apartment->ObjectOf(apartment->FaceOf(object).Get()), object);
}

TEST_F(FaceTest, NothingHasNoFace) {
  EXPECT_FALSE(apartment->FaceOf(nullptr));
  EXPECT_EQ(apartment->ObjectOf(nullptr), nullptr);
}

TEST_F(FaceTest, AFormatEntryIsAnEntryToo) {
  for (const StringView className : kFormatEntries) {
    SCOPED_TRACE(Utf8(className));
    const auto entry = Create<_Entry>(className);
    ASSERT_TRUE(entry);
    ASSERT_EQ(entry->put_Genre(BasicString(u"Rock").Get()), S_OK);
    wchar_t name[] = L"Entry_Genre";
    LPOLESTR names = name;
    DISPID member = 0;
    DISPPARAMS none{};
    OwnedValue genre;
    const auto own = entry.As<IDispatch>();
    EXPECT_NE(static_cast<void*>(own.Get()), static_cast<void*>(entry.Get()));
    ASSERT_EQ(own->GetIDsOfNames(IID_NULL, &names, 1, 0, &member), S_OK);
    ASSERT_EQ(
        own->Invoke(member, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &genre, nullptr, nullptr),
        S_OK);
    EXPECT_EQ(Utf8(FromBasicString(genre->bstrVal)), "Rock");
    EXPECT_EQ(entry->GetIDsOfNames(IID_NULL, &names, 1, 0, &member), DISP_E_UNKNOWNNAME);
  }
}

TEST_F(FaceTest, AnEntrysViewOfAFormatEntryIsThatObject) {
  const auto entry = Create<_Entry>(u"AsxEntry");
  EXPECT_EQ(apartment->ObjectOf(entry.Get())->ClassName(), u"AsxEntry");
}

TEST_F(FaceTest, AClassTellsItsTypes) {
  for (const PublicClass& each : PublicClasses()) {
    SCOPED_TRACE(Utf8(each.name));
    const auto informer = Create<IProvideClassInfo2>(each.name);
    ComPointer<ITypeInfo> type;
    ASSERT_EQ(informer->GetClassInfo(type.Receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_EQ(attributes->guid, each.identifier);
    type->ReleaseTypeAttr(attributes);
    EXPECT_EQ(informer->GetClassInfo(nullptr), E_POINTER);
    GUID events{};
    const bool raises = each.name == u"Entry";
    EXPECT_EQ(informer->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events),
              raises ? S_OK : E_INVALIDARG);
    EXPECT_EQ(events, raises ? __uuidof(__Entry) : GUID{});
    EXPECT_EQ(informer->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
    EXPECT_EQ(informer->GetGUID(7, &events), E_INVALIDARG);
  }
}

TEST_F(FaceTest, EachInterfaceTellsItsOwnType) {
  const auto entry = Create<_Entry>(u"M3UEntry");
  UINT count = 0;
  EXPECT_EQ(entry->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(entry->GetTypeInfoCount(nullptr), E_POINTER);
  ComPointer<ITypeInfo> type;
  ASSERT_EQ(entry->GetTypeInfo(0, 0, type.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, __uuidof(_Entry));
  type->ReleaseTypeAttr(attributes);
  ComPointer<ITypeInfo> none;
  EXPECT_EQ(entry->GetTypeInfo(1, 0, none.Receive()), DISP_E_BADINDEX);
  EXPECT_EQ(entry->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

TEST_F(FaceTest, InterfacesOfTheObjectTellTheirErrors) {
  for (const PublicClass& each : PublicClasses()) {
    const auto support = Create<ISupportErrorInfo>(each.name);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(DualOf(each.name)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
  }
  const auto format = Create<ISupportErrorInfo>(u"PlsEntry");
  EXPECT_EQ(format->InterfaceSupportsErrorInfo(__uuidof(_Entry)), S_OK);
}

TEST_F(FaceTest, AnEarlyBoundCallTellsItsError) {
  const auto item = Create<_ArtistItem>(u"ArtistItem");
  VARIANT text;
  const BasicString word(u"many");
  text.vt = VT_BSTR;
  text.bstrVal = word.Get();
  ASSERT_EQ(item->put_mValue(text), S_OK);
  long number = 7;
  EXPECT_EQ(static_cast<std::uint32_t>(item->get_Value(&number)), 0x800A000DU);
  EXPECT_EQ(number, 7);
  ComPointer<IErrorInfo> information;
  ASSERT_EQ(::GetErrorInfo(0, information.Receive()), S_OK);
  BasicString description;
  EXPECT_EQ(information->GetDescription(description.Receive()), S_OK);
  EXPECT_EQ(description.Text(), "Type mismatch");
}

TEST_F(FaceTest, PlacesMustBeGiven) {
  const auto playList = Create<_PlayList>(u"PlayList");
  VARIANT_BOOL result = VARIANT_FALSE;
  EXPECT_EQ(playList->get_PlayListType(nullptr), E_POINTER);
  EXPECT_EQ(playList->ReadPlayList(nullptr, &result), E_POINTER);
  EXPECT_EQ(playList->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
            E_POINTER);
}

TEST_F(FaceTest, ACallMayLetGoOfTheLastReference) {
  _PlayLists* const list = Create<_PlayLists>(u"PlayLists").Detach();
  ULONG left = 99;
  HostObject greedy([&](const HostObject::Asked& asked) -> HRESULT {
    if (left == 99) left = list->Release();
    asked.result->vt = VT_I4;
    asked.result->lVal = 1;
    return S_OK;
  });
  greedy.Know(u"TotalSongs", 1);
  EXPECT_EQ(list->Add(&greedy), S_OK);
  EXPECT_EQ(left, 1U) << "the call itself holds the object";
  EXPECT_EQ(greedy.References(), 0U);
  EXPECT_EQ(CountLiveObjects(), 0);
}

}  // namespace
}  // namespace norvo::com

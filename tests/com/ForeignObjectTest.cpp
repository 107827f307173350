#include "com/ForeignObject.h"

#include "automation/Conversions.h"
#include "com/ComTest.h"
#include "com/HostObject.h"
#include "com/NorvoPlayList.h"

namespace norvo::com {
namespace {

class ForeignObjectTest : public ComTest {
 protected:
  /// The object as the library sees it.
  ObjectRef Seen(HostObject& host) { return apartment->ObjectOf(&host); }

  /// Number of the error that comes out of a property whose object answers so.
  std::int32_t NumberFor(HostObject::Answer answer) {
    HostObject host(std::move(answer));
    host.Know(u"Name", 1);
    return NumberRaisedBy([&] { return Seen(host)->Get(u"Name"); });
  }

  static HRESULT AnswerNumber(const HostObject::Asked& asked, LONG number) {
    if (asked.result == nullptr) return S_OK;
    asked.result->vt = VT_I4;
    asked.result->lVal = number;
    return S_OK;
  }
};

TEST_F(ForeignObjectTest, APropertyIsReadByItsName) {
  HostObject host([](const HostObject::Asked& asked) { return AnswerNumber(asked, asked.member); });
  host.Know(u"Name", 4);
  EXPECT_EQ(Seen(host)->Get(u"nAME"), Variant(std::int32_t{4}));
  EXPECT_EQ(host.References(), 0U);
}

TEST_F(ForeignObjectTest, NamesThatOnlyTheExtendedInterfaceTellsAreFound) {
  HostObject host([](const HostObject::Asked& asked) { return AnswerNumber(asked, asked.member); });
  host.Know(u"Name", 4);
  host.HideNames();
  EXPECT_EQ(Seen(host)->Get(u"NAME"), Variant(std::int32_t{4}));
  EXPECT_EQ(NumberRaisedBy([&] { return Seen(host)->Get(u"Other"); }), error::kNoSuchMember);
  EXPECT_EQ(host.References(), 0U);
}

TEST_F(ForeignObjectTest, AnUnknownNameIsNoMember) {
  HostObject host;
  EXPECT_EQ(NumberRaisedBy([&] { return Seen(host)->Get(u"Name"); }), error::kNoSuchMember);
  EXPECT_TRUE(host.Kinds().empty());
}

TEST_F(ForeignObjectTest, DataThatIsHandedOutToAPropertyGetAloneIsFound) {
  HostObject host([](const HostObject::Asked& asked) {
    return asked.kind == DISPATCH_PROPERTYGET ? AnswerNumber(asked, 5) : DISP_E_MEMBERNOTFOUND;
  });
  host.Know(u"Name", 1);
  EXPECT_EQ(Seen(host)->Get(u"Name"), Variant(std::int32_t{5}));
  EXPECT_EQ(host.Kinds(), (std::vector<WORD>{DISPATCH_PROPERTYGET}));
  EXPECT_EQ(Seen(host)->Call(u"Name"), Variant(std::int32_t{5}));
}

TEST_F(ForeignObjectTest, AMethodAnswersARead) {
  HostObject host([](const HostObject::Asked& asked) {
    return asked.kind == DISPATCH_METHOD ? AnswerNumber(asked, 6) : DISP_E_MEMBERNOTFOUND;
  });
  host.Know(u"Name", 1);
  EXPECT_EQ(Seen(host)->Get(u"Name"), Variant(std::int32_t{6}));
  EXPECT_EQ(host.Kinds(), (std::vector<WORD>{DISPATCH_PROPERTYGET, DISPATCH_METHOD}));
}

TEST_F(ForeignObjectTest, ArgumentsArePassedTheLastFirst) {
  HostObject host([this](const HostObject::Asked& asked) -> HRESULT {
    EXPECT_EQ(asked.parameters.cArgs, 2U);
    EXPECT_EQ(asked.parameters.cNamedArgs, 0U);
    EXPECT_EQ(FromNative(*apartment, asked.parameters.rgvarg[1]), Variant(String(u"first")));
    EXPECT_EQ(FromNative(*apartment, asked.parameters.rgvarg[0]), Variant(std::int32_t{2}));
    return S_OK;
  });
  host.Know(u"Play", 1);
  std::vector<Variant> arguments{String(u"first"), std::int32_t{2}};
  EXPECT_EQ(Seen(host)->Call(u"Play", arguments), Variant());
  EXPECT_EQ(host.Kinds(), (std::vector<WORD>{DISPATCH_METHOD}));
}

TEST_F(ForeignObjectTest, AValueIsPutUnderTheNameOfAssignments) {
  HostObject host([this](const HostObject::Asked& asked) -> HRESULT {
    EXPECT_EQ(asked.parameters.cArgs, 1U);
    EXPECT_EQ(asked.parameters.cNamedArgs, 1U);
    EXPECT_EQ(asked.parameters.rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
    EXPECT_EQ(FromNative(*apartment, asked.parameters.rgvarg[0]), Variant(String(u"x")));
    EXPECT_EQ(asked.result, nullptr);
    return S_OK;
  });
  host.Know(u"Name", 1);
  Seen(host)->Let(u"Name", String(u"x"));
  EXPECT_EQ(host.Kinds(), (std::vector<WORD>{DISPATCH_PROPERTYPUT}));
}

TEST_F(ForeignObjectTest, AnObjectIsSetWhereThatIsPossible) {
  HostObject host([](const HostObject::Asked&) -> HRESULT { return S_OK; });
  host.Know(u"Name", 1);
  Seen(host)->Let(u"Name", ObjectRef());
  EXPECT_EQ(host.Kinds(), (std::vector<WORD>{DISPATCH_PROPERTYPUTREF}));
}

TEST_F(ForeignObjectTest, AnObjectIsPutWhereItCannotBeSet) {
  HostObject host([](const HostObject::Asked& asked) -> HRESULT {
    return asked.kind == DISPATCH_PROPERTYPUT ? S_OK : DISP_E_MEMBERNOTFOUND;
  });
  host.Know(u"Name", 1);
  Seen(host)->Let(u"Name", ObjectRef());
  EXPECT_EQ(host.Kinds(), (std::vector<WORD>{DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT}));
}

TEST_F(ForeignObjectTest, WhatTheObjectRaisesIsRaised) {
  EXPECT_EQ(NumberFor([](const HostObject::Asked& asked) -> HRESULT {
              asked.information->wCode = 1001;
              return DISP_E_EXCEPTION;
            }),
            1001);
  EXPECT_EQ(NumberFor([](const HostObject::Asked& asked) -> HRESULT {
              asked.information->scode = static_cast<SCODE>(0x800A0035);
              return DISP_E_EXCEPTION;
            }),
            53);
  EXPECT_EQ(NumberFor([](const HostObject::Asked& asked) -> HRESULT {
              asked.information->pfnDeferredFillIn = [](EXCEPINFO* late) -> HRESULT {
                late->wCode = 77;
                return S_OK;
              };
              return DISP_E_EXCEPTION;
            }),
            77);
}

TEST_F(ForeignObjectTest, AnObjectThatRaisesIsNotAskedOnceMore) {
  HostObject host([](const HostObject::Asked& asked) -> HRESULT {
    asked.information->wCode = 1;
    return DISP_E_EXCEPTION;
  });
  host.Know(u"Name", 1);
  EXPECT_EQ(NumberRaisedBy([&] { return Seen(host)->Get(u"Name"); }), 1);
  EXPECT_EQ(host.Kinds().size(), 1U);
}

TEST_F(ForeignObjectTest, RefusalsOfTheSystemHaveTheirNumbers) {
  const auto refusing = [this](HRESULT status) {
    return NumberFor([status](const HostObject::Asked&) { return status; });
  };
  EXPECT_EQ(refusing(DISP_E_MEMBERNOTFOUND), error::kNoSuchMember);
  EXPECT_EQ(refusing(DISP_E_UNKNOWNNAME), error::kNoSuchMember);
  EXPECT_EQ(refusing(DISP_E_TYPEMISMATCH), error::kTypeMismatch);
  EXPECT_EQ(refusing(DISP_E_OVERFLOW), error::kOverflow);
  EXPECT_EQ(refusing(DISP_E_BADPARAMCOUNT), error::kWrongArguments);
  EXPECT_EQ(refusing(DISP_E_PARAMNOTOPTIONAL), error::kWrongArguments);
  EXPECT_EQ(refusing(E_OUTOFMEMORY), error::kOutOfMemory);
  EXPECT_EQ(refusing(static_cast<HRESULT>(0x800A0035)), 53);
  EXPECT_EQ(refusing(E_FAIL), E_FAIL);
}

TEST_F(ForeignObjectTest, TheObjectItselfGoesOutAgain) {
  HostObject host;
  const ObjectRef seen = Seen(host);
  EXPECT_EQ(apartment->FaceOf(seen).Get(), &host);
  OwnedValue made;
  ToNative(*apartment, seen, &made);
  EXPECT_EQ(made->pdispVal, &host);
}

TEST_F(ForeignObjectTest, ItIsLetGoOfWithItsLastHolder) {
  HostObject host;
  {
    const ObjectRef seen = Seen(host);
    EXPECT_EQ(host.References(), 1U);
    EXPECT_EQ(CountLiveObjects(), 1);
  }
  EXPECT_EQ(host.References(), 0U);
}

TEST_F(ForeignObjectTest, ItsClassIsThatOfItsTypeInformation) {
  HostObject plain, typed;
  EXPECT_EQ(Seen(plain)->ClassName(), u"");
  EXPECT_EQ(Seen(plain)->Members(), nullptr);
  typed.SetType(apartment->TypeOf(__uuidof(_PlayList)));
  EXPECT_EQ(Seen(typed)->ClassName(), u"PlayList");
}

TEST_F(ForeignObjectTest, ACollectionHoldsAHostsOwnObject) {
  HostObject host([](const HostObject::Asked& asked) { return AnswerNumber(asked, 3); });
  host.Know(u"Entry_EntryType", 1);
  {
    const auto entries = Create<_Entries>(u"Entries");
    ASSERT_EQ(entries->put_CollectionType(3), S_OK);
    ASSERT_EQ(entries->Add(&host), S_OK);
    long index = 1;
    ComPointer<IDispatch> item;
    ASSERT_EQ(entries->Item(&index, item.Receive()), S_OK);
    EXPECT_EQ(item.Get(), &host);
    EXPECT_EQ(host.References(), 2U);
  }
  EXPECT_EQ(host.References(), 0U);
}

}  // namespace
}  // namespace norvo::com

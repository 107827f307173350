#include "com/DispatchCall.h"

#include <limits>

#include "com/ComTest.h"
#include "com/ErrorInfo.h"
#include "com/VariantConversion.h"

namespace norvo::com {
namespace {

/// One member of each kind.
class Sample final : public TableObject {
 public:
  String Title() { return title; }
  void SetTitle(const String& value) { title = value; }
  std::int32_t Size() { return 12; }
  void SetColour(std::int32_t value) { colour = value; }
  ObjectRef Parent() { return parent; }
  void SetParent(const ObjectRef& value) { parent = value; }
  String Join(const String& first, std::int32_t& count, const Variant& rest) {
    const String kind = std::holds_alternative<Missing>(rest)          ? u"missing"
                        : std::holds_alternative<std::monostate>(rest) ? u"empty"
                                                                       : ToText(rest);
    String joined = first + u'/' + ToText(Variant(count)) + u'/' + kind;
    ++count;
    return joined;
  }
  void Look(std::int32_t&, Variant&) {}
  void Fail() { throw RunTimeError(error::kFileNotFound, u"No such song"); }
  void Exhaust() { throw std::bad_alloc(); }

  static const MemberTable& Interface() {
    static const MemberTable table(
        u"Sample",
        {
            Property<&Sample::Title, &Sample::SetTitle>(u"Title"),
            ReadOnly<&Sample::Size>(u"Size"),
            WriteOnly<&Sample::SetColour>(u"Colour"),
            Property<&Sample::Parent, &Sample::SetParent>(u"Parent"),
            Method<&Sample::Join>(u"Join", {In(u"First"), ByRef(u"Count"), Optional(u"Rest")}),
            Method<&Sample::Look>(u"Look", {ByRef(u"Number"), ByRef(u"Value")}),
            Method<&Sample::Fail>(u"Fail"),
            Method<&Sample::Exhaust>(u"Exhaust"),
        });
    return table;
  }

  String title = u"Aria";
  std::int32_t colour = 0;
  ObjectRef parent;

 protected:
  const MemberTable& Table() const override { return Interface(); }
};

enum MemberNumber : DISPID { kTitle = 1, kSize, kColour, kParent, kJoin, kLook, kFail, kExhaust };

class DispatchCallTest : public ComTest {
 protected:
  ~DispatchCallTest() override {
    for (VARIANT& value : values_) ::VariantClear(&value);
  }

  // Arguments, in the order of the source text.
  void Give(const Variant& value) { ToNative(*apartment, value, &values_.emplace_back()); }
  void GiveVariable(VARTYPE type, void* place) {
    VARIANT& value = values_.emplace_back();
    ::VariantInit(&value);
    value.vt = static_cast<VARTYPE>(type | VT_BYREF);
    value.byref = place;
  }
  void Name(DISPID parameter) { names_.push_back(parameter); }
  void NameOnly(DISPID parameter) { names_.assign({parameter}); }

  HRESULT Invoke(DISPID member, WORD kind, VARIANT* result, EXCEPINFO* information = nullptr) {
    // As the system passes them: the last first, and so with the names.
    std::vector<VARIANT> reversed(values_.rbegin(), values_.rend());
    std::vector<DISPID> names(names_.rbegin(), names_.rend());
    const DISPPARAMS parameters{reversed.data(), names.data(), static_cast<UINT>(reversed.size()),
                                static_cast<UINT>(names.size())};
    return DispatchCall(*apartment, sample, Sample::Interface())
        .Invoke(member, kind, parameters, result, information);
  }
  std::string Answer(DISPID member, WORD kind = DISPATCH_METHOD) {
    OwnedValue result;
    EXPECT_EQ(Invoke(member, kind, &result), S_OK);
    return Utf8(ToText(FromNative(*apartment, *result)));
  }
  std::uint32_t Status(DISPID member, WORD kind = DISPATCH_METHOD) {
    OwnedValue result;
    return static_cast<std::uint32_t>(Invoke(member, kind, &result));
  }
  /// The numbers of a member and of its parameters, by name.
  std::pair<HRESULT, std::vector<DISPID>> Find(std::vector<std::wstring> names) {
    std::vector<LPOLESTR> pointers;
    for (std::wstring& name : names) pointers.push_back(name.data());
    std::vector<DISPID> found(names.size(), 99);
    const HRESULT status = DispatchCall::FindNames(Sample::Interface(), pointers.data(),
                                                   static_cast<UINT>(names.size()), found.data());
    return {status, found};
  }

  static constexpr std::uint32_t kFirstStatus = 0x800A0000;
  static constexpr std::uint32_t kWrongCount = kFirstStatus + error::kWrongArguments;
  static constexpr std::uint32_t kUnknown = 0x80020003;  // DISP_E_MEMBERNOTFOUND

  Sample sample;

 private:
  std::vector<VARIANT> values_;
  std::vector<DISPID> names_;
};

using Found = std::pair<HRESULT, std::vector<DISPID>>;

TEST_F(DispatchCallTest, MembersAreFoundInAnyCase) {
  EXPECT_EQ(Find({L"Title"}), (Found{S_OK, {kTitle}}));
  EXPECT_EQ(Find({L"eXHAUST"}), (Found{S_OK, {kExhaust}}));
  EXPECT_EQ(Find({L"Titles"}), (Found{DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}}));
  EXPECT_EQ(Find({L""}), (Found{DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}}));
}

TEST_F(DispatchCallTest, ParametersAreFoundInAnyOrderAndCase) {
  EXPECT_EQ(Find({L"Join", L"REST", L"First", L"count"}), (Found{S_OK, {kJoin, 2, 0, 1}}));
  EXPECT_EQ(Find({L"Join", L"Rest", L"Tail", L"First"}),
            (Found{DISP_E_UNKNOWNNAME, {kJoin, 2, DISPID_UNKNOWN, 0}}));
  EXPECT_EQ(Find({L"Nothing", L"First"}),
            (Found{DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN, DISPID_UNKNOWN}}));
}

TEST_F(DispatchCallTest, NamesAndPlacesMustBeGiven) {
  DISPID found = 0;
  wchar_t text[] = L"Title";
  LPOLESTR name = text;
  EXPECT_EQ(DispatchCall::FindNames(Sample::Interface(), nullptr, 1, &found), E_INVALIDARG);
  EXPECT_EQ(DispatchCall::FindNames(Sample::Interface(), &name, 0, &found), E_INVALIDARG);
  EXPECT_EQ(DispatchCall::FindNames(Sample::Interface(), &name, 1, nullptr), E_INVALIDARG);
}

TEST_F(DispatchCallTest, APropertyIsReadByEitherKindOfCall) {
  EXPECT_EQ(Answer(kTitle, DISPATCH_PROPERTYGET), "Aria");
  EXPECT_EQ(Answer(kTitle, DISPATCH_METHOD), "Aria");
  EXPECT_EQ(Answer(kSize, DISPATCH_PROPERTYGET | DISPATCH_METHOD), "12");
}

TEST_F(DispatchCallTest, APropertyIsPutInAnyType) {
  Give(std::int32_t{7});
  Name(DISPID_PROPERTYPUT);
  EXPECT_EQ(Status(kTitle, DISPATCH_PROPERTYPUT), 0U);
  EXPECT_TEXT(sample.title, u"7");
  EXPECT_EQ(Status(kColour, DISPATCH_PROPERTYPUT), 0U);
  EXPECT_EQ(sample.colour, 7);
}

TEST_F(DispatchCallTest, AnObjectIsPutByEitherKindOfAssignment) {
  const ObjectRef entry = apartment->Create(u"Entry");
  Give(entry);
  Name(DISPID_PROPERTYPUT);
  EXPECT_EQ(Status(kParent, DISPATCH_PROPERTYPUTREF), 0U);
  EXPECT_EQ(sample.parent, entry);
  sample.parent = nullptr;
  EXPECT_EQ(Status(kParent, DISPATCH_PROPERTYPUT), 0U);
  EXPECT_EQ(sample.parent, entry);
  EXPECT_EQ(Status(kParent, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF), 0U);
}

TEST_F(DispatchCallTest, WhatCannotBeReadOrPutIsNotThere) {
  EXPECT_EQ(Status(kColour, DISPATCH_PROPERTYGET), kUnknown);
  Give(std::int32_t{7});
  Name(DISPID_PROPERTYPUT);
  EXPECT_EQ(Status(kSize, DISPATCH_PROPERTYPUT), kUnknown);
  EXPECT_EQ(Status(kJoin, DISPATCH_PROPERTYPUT), kUnknown);
}

TEST_F(DispatchCallTest, NumbersOfNoMemberAreNotThere) {
  for (const DISPID member : std::initializer_list<DISPID>{
           0, -1, kExhaust + 1, DISPID_NEWENUM, DISPID_UNKNOWN, std::numeric_limits<DISPID>::min(),
           std::numeric_limits<DISPID>::max()}) {
    EXPECT_EQ(Status(member), kUnknown) << member;
  }
}

TEST_F(DispatchCallTest, ArgumentsComeInTheOrderOfTheParameters) {
  Give(String(u"a"));
  Give(std::int32_t{2});
  Give(String(u"c"));
  EXPECT_EQ(Answer(kJoin), "a/2/c");
}

TEST_F(DispatchCallTest, NamedArgumentsFindTheirParameters) {
  Give(String(u"a"));
  Give(String(u"c"));
  Give(std::int32_t{2});
  Name(2);
  Name(1);
  EXPECT_EQ(Answer(kJoin), "a/2/c");
}

TEST_F(DispatchCallTest, AMissingArgumentIsNotAnEmptyOne) {
  Give(String(u"a"));
  Give(std::int32_t{2});
  EXPECT_EQ(Answer(kJoin), "a/2/missing");
  Give(Missing{});
  EXPECT_EQ(Answer(kJoin), "a/2/missing");
}

TEST_F(DispatchCallTest, AnEmptyArgumentIsNotAMissingOne) {
  Give(String(u"a"));
  Give(std::int32_t{2});
  Give(Variant());
  EXPECT_EQ(Answer(kJoin), "a/2/empty");
}

TEST_F(DispatchCallTest, AWrongNumberOfArgumentsIsTold) {
  EXPECT_EQ(Status(kJoin), kWrongCount);
  EXPECT_EQ(Status(kTitle, DISPATCH_PROPERTYPUT), kWrongCount);
  Give(String(u"a"));
  EXPECT_EQ(Status(kJoin), kWrongCount);
  EXPECT_EQ(Status(kTitle, DISPATCH_PROPERTYGET), kWrongCount);
  EXPECT_EQ(Status(kFail), kWrongCount);
  for (const int number : {2, 3, 4}) Give(std::int32_t{number});
  EXPECT_EQ(Status(kJoin), kWrongCount);
  EXPECT_EQ(Status(kTitle, DISPATCH_PROPERTYPUT), kWrongCount);
}

TEST_F(DispatchCallTest, AParameterThatIsNamedAndGivenInOrderIsTooMuch) {
  Give(String(u"a"));
  Give(String(u"b"));
  Name(0);
  EXPECT_EQ(Status(kJoin), kWrongCount);
}

TEST_F(DispatchCallTest, AParameterThatIsNamedTwiceIsTooMuch) {
  Give(std::int32_t{1});
  Give(String(u"a"));
  Give(String(u"b"));
  Name(0);
  Name(0);
  EXPECT_EQ(Status(kJoin), kWrongCount);
}

TEST_F(DispatchCallTest, NamesOfNoParameterAreRefused) {
  Give(String(u"a"));
  Give(std::int32_t{1});
  for (const DISPID name : std::initializer_list<DISPID>{3, 99, -1, DISPID_PROPERTYPUT,
                                                         std::numeric_limits<DISPID>::min()}) {
    NameOnly(name);
    EXPECT_EQ(Status(kJoin), kWrongCount) << name;
  }
  NameOnly(1);
  EXPECT_EQ(Answer(kJoin), "a/1/missing");
}

TEST_F(DispatchCallTest, AVariableOfTheCallerIsWrittenBack) {
  LONG count = 2;
  Give(String(u"a"));
  GiveVariable(VT_I4, &count);
  EXPECT_EQ(Answer(kJoin), "a/2/missing");
  EXPECT_EQ(count, 3);
}

TEST_F(DispatchCallTest, AVariableOfAnotherTypeIsWrittenBackInItsOwn) {
  BasicString count(u"2");
  Give(String(u"a"));
  GiveVariable(VT_BSTR, count.Place());
  EXPECT_EQ(Answer(kJoin), "a/2/missing");
  EXPECT_EQ(count.Text(), "3");
}

TEST_F(DispatchCallTest, AVariableThatTheMemberLeavesAloneKeepsValueAndType) {
  double number = 1.25;
  OwnedValue value;
  value->vt = VT_CY;
  value->cyVal.int64 = 12500;
  GiveVariable(VT_R8, &number);
  GiveVariable(VT_VARIANT, &value);
  EXPECT_EQ(Status(kLook), 0U);
  EXPECT_EQ(number, 1.25);
  EXPECT_EQ(value->vt, VT_CY);
  EXPECT_EQ(value->cyVal.int64, 12500);
}

TEST_F(DispatchCallTest, AVariableThatIsReadOnlyKeepsItsValue) {
  BasicString first(u"a");
  LONG count = 2;
  GiveVariable(VT_BSTR, first.Place());
  GiveVariable(VT_I4, &count);
  EXPECT_EQ(Answer(kJoin), "a/2/missing");
  EXPECT_EQ(first.Text(), "a");
}

TEST_F(DispatchCallTest, TheResultNeedNotBeTaken) {
  LONG count = 2;
  Give(String(u"a"));
  GiveVariable(VT_I4, &count);
  EXPECT_EQ(Invoke(kJoin, DISPATCH_METHOD, nullptr), S_OK);
  EXPECT_EQ(count, 3);
}

TEST_F(DispatchCallTest, AnErrorIsToldInFull) {
  EXCEPINFO information{};
  EXPECT_EQ(Invoke(kFail, DISPATCH_METHOD, nullptr, &information), DISP_E_EXCEPTION);
  EXPECT_EQ(static_cast<std::uint32_t>(information.scode), kFirstStatus + 53);
  EXPECT_EQ(Utf8(FromBasicString(information.bstrDescription)), "No such song");
  EXPECT_EQ(ErrorOf(information).Number(), 53);
}

TEST_F(DispatchCallTest, ACallerWithoutRoomForTheErrorGetsItsNumber) {
  EXPECT_EQ(Status(kFail), kFirstStatus + 53);
}

TEST_F(DispatchCallTest, NothingThatIsThrownGetsThrough) {
  EXPECT_EQ(Status(kExhaust), kFirstStatus + 7);
}

TEST_F(DispatchCallTest, ArgumentsThatDoNotConvertAreAMismatch) {
  Give(String(u"a"));
  Give(String(u"many"));
  EXPECT_EQ(Status(kJoin), kFirstStatus + 13);
}

}  // namespace
}  // namespace norvo::com

#include "com/VariantConversion.h"

#include <cmath>
#include <limits>

#include "automation/Conversions.h"
#include "com/ComTest.h"
#include "com/HostObject.h"

namespace norvo::com {
namespace {

class VariantConversionTest : public ComTest {
 protected:
  Variant Taken(const VARIANT& value) { return FromNative(*apartment, value); }
  std::int32_t Refused(const VARIANT& value) {
    return NumberRaisedBy([&] { return Taken(value); });
  }
  /// The number behind a reference to a variable of another type.
  double Number(VARTYPE type, void* place) {
    return std::get<double>(Taken(Reference(type, place)));
  }

  static VARIANT Plain(VARTYPE type) {
    VARIANT value;
    ::VariantInit(&value);
    value.vt = type;
    return value;
  }
  static VARIANT Reference(VARTYPE type, void* place) {
    VARIANT value = Plain(static_cast<VARTYPE>(type | VT_BYREF));
    value.byref = place;
    return value;
  }
  void Put(const Variant& value, VARTYPE type, void* place) {
    WriteBack(*apartment, value, Reference(type, place));
  }
  std::int32_t RefusedBack(const Variant& value, VARTYPE type, void* place) {
    return NumberRaisedBy([&] {
      Put(value, type, place);
      return 0;
    });
  }
};

TEST_F(VariantConversionTest, TypesOfTheLibraryAreTakenAsTheyAre) {
  EXPECT_EQ(Taken(Plain(VT_EMPTY)), Variant());
  EXPECT_EQ(Taken(Plain(VT_NULL)), Variant(Null{}));
  VARIANT value = Plain(VT_BOOL);
  EXPECT_EQ(Taken(value), Variant(false));
  value.boolVal = VARIANT_TRUE;
  EXPECT_EQ(Taken(value), Variant(true));
  value.boolVal = 1;
  EXPECT_EQ(Taken(value), Variant(true)) << "any bit is enough";
  value = Plain(VT_UI1);
  value.bVal = 255;
  EXPECT_EQ(Taken(value), Variant(std::uint8_t{255}));
  value = Plain(VT_I2);
  value.iVal = -32768;
  EXPECT_EQ(Taken(value), Variant(std::int16_t{-32768}));
  for (const VARTYPE type : {VT_I4, VT_INT}) {
    value = Plain(type);
    value.lVal = std::numeric_limits<LONG>::min();
    EXPECT_EQ(Taken(value), Variant(std::numeric_limits<std::int32_t>::min()));
  }
  value = Plain(VT_R8);
  value.dblVal = 1.25;
  EXPECT_EQ(Taken(value), Variant(1.25));
  value = Plain(VT_DATE);
  value.date = 37755.5;
  EXPECT_EQ(Taken(value), Variant(Date{37755.5}));
}

TEST_F(VariantConversionTest, TextsKeepTheirNuls) {
  const BasicString text(StringView(u"a\0b", 3));
  VARIANT value = Plain(VT_BSTR);
  value.bstrVal = text.Get();
  EXPECT_EQ(Taken(value), Variant(String(u"a\0b", 3)));
  value.bstrVal = nullptr;
  EXPECT_EQ(Taken(value), Variant(String()));
}

TEST_F(VariantConversionTest, OtherNumbersBecomeDoubles) {
  VARIANT value = Plain(VT_I1);
  value.cVal = -5;
  EXPECT_EQ(Taken(value), Variant(-5.0));
  value = Plain(VT_UI2);
  value.uiVal = 65535;
  EXPECT_EQ(Taken(value), Variant(65535.0));
  for (const VARTYPE type : {VT_UI4, VT_UINT}) {
    value = Plain(type);
    value.ulVal = 4294967295U;
    EXPECT_EQ(Taken(value), Variant(4294967295.0));
  }
  value = Plain(VT_I8);
  value.llVal = -(LONGLONG{1} << 40);
  EXPECT_EQ(Taken(value), Variant(-1099511627776.0));
  value = Plain(VT_UI8);
  value.ullVal = ULONGLONG{1} << 40;
  EXPECT_EQ(Taken(value), Variant(1099511627776.0));
  value = Plain(VT_R4);
  value.fltVal = -0.5F;
  EXPECT_EQ(Taken(value), Variant(-0.5));
  value = Plain(VT_CY);
  value.cyVal.int64 = 12500;
  EXPECT_EQ(Taken(value), Variant(1.25)) << "ten-thousandths";
  ASSERT_EQ(::VarDecFromR8(-2.5, &value.decVal), S_OK);
  value.vt = VT_DECIMAL;
  EXPECT_EQ(Taken(value), Variant(-2.5));
}

TEST_F(VariantConversionTest, ALeftOutArgumentIsMissingAndNotEmpty) {
  VARIANT value = Plain(VT_ERROR);
  value.scode = DISP_E_PARAMNOTFOUND;
  EXPECT_EQ(Taken(value), Variant(Missing{}));
  value.scode = E_FAIL;
  EXPECT_EQ(Refused(value), error::kTypeMismatch);
}

TEST_F(VariantConversionTest, ObjectsAreTakenThroughEitherInterface) {
  const ComPointer<IDispatch> face = Create(u"Entry");
  VARIANT value = Plain(VT_DISPATCH);
  value.pdispVal = face.Get();
  const Variant taken = Taken(value);
  EXPECT_EQ(std::get<ObjectRef>(taken)->ClassName(), u"Entry");
  value = Plain(VT_UNKNOWN);
  value.punkVal = face.As<IUnknown>().Get();
  EXPECT_EQ(Taken(value), taken);
  for (const VARTYPE type : {VT_DISPATCH, VT_UNKNOWN}) {
    EXPECT_EQ(Taken(Plain(type)), Variant(ObjectRef()));
  }
}

TEST_F(VariantConversionTest, AnObjectWithoutLateBoundCallsIsRefused) {
  ComPointer<ICreateErrorInfo> plain;
  ASSERT_EQ(::CreateErrorInfo(plain.Receive()), S_OK);
  VARIANT value = Plain(VT_UNKNOWN);
  value.punkVal = plain.Get();
  EXPECT_EQ(Refused(value), error::kTypeMismatch);
}

TEST_F(VariantConversionTest, ValuesOfUnknownTypesAreRefused) {
  EXPECT_EQ(Refused(Plain(VT_RECORD)), error::kTypeMismatch);
  EXPECT_EQ(Refused(Plain(VT_PTR)), error::kTypeMismatch);
  EXPECT_EQ(Refused(Plain(VT_FILETIME)), error::kTypeMismatch);
}

TEST_F(VariantConversionTest, ReferencesAreFollowed) {
  LONG number = 7;
  EXPECT_EQ(Taken(Reference(VT_I4, &number)), Variant(std::int32_t{7}));
  SHORT small = 7;
  EXPECT_EQ(Taken(Reference(VT_I2, &small)), Variant(std::int16_t{7}));
  BYTE byte = 7;
  EXPECT_EQ(Taken(Reference(VT_UI1, &byte)), Variant(std::uint8_t{7}));
  VARIANT_BOOL boolean = VARIANT_TRUE;
  EXPECT_EQ(Taken(Reference(VT_BOOL, &boolean)), Variant(true));
  DATE date = 2.5;
  EXPECT_EQ(Taken(Reference(VT_DATE, &date)), Variant(Date{2.5}));
  BasicString text(u"seven");
  EXPECT_EQ(Taken(Reference(VT_BSTR, text.Place())), Variant(String(u"seven")));
  const ComPointer<IDispatch> face = Create(u"Entry");
  IDispatch* object = face.Get();
  EXPECT_EQ(std::get<ObjectRef>(Taken(Reference(VT_DISPATCH, &object)))->ClassName(), u"Entry");
}

TEST_F(VariantConversionTest, OtherNumbersBecomeDoublesBehindReferencesToo) {
  signed char tiny = -5;
  EXPECT_EQ(Number(VT_I1, &tiny), -5);
  USHORT small = 65535;
  EXPECT_EQ(Number(VT_UI2, &small), 65535);
  ULONG number = 4294967295U;
  EXPECT_EQ(Number(VT_UI4, &number), 4294967295.0);
  EXPECT_EQ(Number(VT_UINT, &number), 4294967295.0);
  LONGLONG large = -3;
  EXPECT_EQ(Number(VT_I8, &large), -3);
  ULONGLONG natural = 3;
  EXPECT_EQ(Number(VT_UI8, &natural), 3);
  float single = 0.5F;
  EXPECT_EQ(Number(VT_R4, &single), 0.5);
  CY money{};
  money.int64 = -5000;
  EXPECT_EQ(Number(VT_CY, &money), -0.5);
  DECIMAL decimal{};
  ASSERT_EQ(::VarDecFromR8(2.5, &decimal), S_OK);
  EXPECT_EQ(Number(VT_DECIMAL, &decimal), 2.5);
}

TEST_F(VariantConversionTest, AReferenceToAVariantIsFollowedToTheEnd) {
  LONG number = 7;
  VARIANT inner = Reference(VT_I4, &number);
  VARIANT outer = Reference(VT_VARIANT, &inner);
  EXPECT_EQ(Taken(Reference(VT_VARIANT, &outer)), Variant(std::int32_t{7}));
}

TEST_F(VariantConversionTest, ArraysOfTextsAreTakenWhole) {
  SAFEARRAY* const texts = ToTextArray(
      std::make_shared<std::vector<String>>(std::vector<String>{u"a", String(u"b\0c", 3), u""}));
  VARIANT value = Plain(VT_ARRAY | VT_BSTR);
  value.parray = texts;
  const std::vector<String> expected{u"a", String(u"b\0c", 3), u""};
  EXPECT_EQ(*std::get<StringArray>(Taken(value)), expected);
  SAFEARRAY* place = texts;
  EXPECT_EQ(*std::get<StringArray>(Taken(Reference(VT_ARRAY | VT_BSTR, &place))), expected);
  ::SafeArrayDestroy(texts);
}

TEST_F(VariantConversionTest, AnArrayOfVariantsIsTakenAsTexts) {
  OwnedValue value;
  value->vt = VT_ARRAY | VT_VARIANT;
  value->parray = ::SafeArrayCreateVector(VT_VARIANT, 5, 2);
  OwnedValue number;
  number->vt = VT_I4;
  number->lVal = 12;
  LONG index = 6;
  ASSERT_EQ(::SafeArrayPutElement(value->parray, &index, &number), S_OK);
  EXPECT_EQ(*std::get<StringArray>(Taken(*value)), (std::vector<String>{u"", u"12"}));
}

TEST_F(VariantConversionTest, OtherArraysAreRefused) {
  OwnedValue numbers;
  numbers->vt = VT_ARRAY | VT_I4;
  numbers->parray = ::SafeArrayCreateVector(VT_I4, 0, 2);
  EXPECT_EQ(Refused(*numbers), error::kTypeMismatch);
  SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
  OwnedValue square;
  square->vt = VT_ARRAY | VT_BSTR;
  square->parray = ::SafeArrayCreate(VT_BSTR, 2, bounds);
  EXPECT_EQ(Refused(*square), error::kTypeMismatch);
}

TEST_F(VariantConversionTest, AnArrayThatIsNotThereIsNoArray) {
  EXPECT_EQ(std::get<StringArray>(Taken(Plain(VT_ARRAY | VT_BSTR))), nullptr);
}

TEST_F(VariantConversionTest, ValuesGoOutInTheirOwnTypes) {
  const auto given = [this](const Variant& value, OwnedValue& made) {
    ToNative(*apartment, value, &made);
    return made->vt;
  };
  OwnedValue empty, missing, null, yes, no, byte, small, number, real, date, text;
  EXPECT_EQ(given({}, empty), VT_EMPTY);
  EXPECT_EQ(given(Missing{}, missing), VT_ERROR);
  EXPECT_EQ(missing->scode, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(given(Null{}, null), VT_NULL);
  EXPECT_EQ(given(true, yes), VT_BOOL);
  EXPECT_EQ(yes->boolVal, VARIANT_TRUE);
  EXPECT_EQ(given(false, no), VT_BOOL);
  EXPECT_EQ(no->boolVal, VARIANT_FALSE);
  EXPECT_EQ(given(std::uint8_t{200}, byte), VT_UI1);
  EXPECT_EQ(byte->bVal, 200);
  EXPECT_EQ(given(std::int16_t{-2}, small), VT_I2);
  EXPECT_EQ(small->iVal, -2);
  EXPECT_EQ(given(std::int32_t{-70000}, number), VT_I4);
  EXPECT_EQ(number->lVal, -70000);
  EXPECT_EQ(given(1.5, real), VT_R8);
  EXPECT_EQ(real->dblVal, 1.5);
  EXPECT_EQ(given(Date{2.25}, date), VT_DATE);
  EXPECT_EQ(date->date, 2.25);
  EXPECT_EQ(given(String(u"a\0b", 3), text), VT_BSTR);
  EXPECT_EQ(FromBasicString(text->bstrVal), String(u"a\0b", 3));
}

TEST_F(VariantConversionTest, ObjectsGoOutAsTheirFaces) {
  const ComPointer<IDispatch> face = Create(u"Entry");
  OwnedValue made, nothing;
  ToNative(*apartment, apartment->ObjectOf(face.Get()), &made);
  EXPECT_EQ(made->vt, VT_DISPATCH);
  EXPECT_EQ(made->pdispVal, face.Get());
  ToNative(*apartment, ObjectRef(), &nothing);
  EXPECT_EQ(nothing->vt, VT_DISPATCH);
  EXPECT_EQ(nothing->pdispVal, nullptr);
}

TEST_F(VariantConversionTest, TextsGoOutAsAnArrayOfVariants) {
  const auto texts = std::make_shared<std::vector<String>>(std::vector<String>{u"a", u"b"});
  OwnedValue made;
  ToNative(*apartment, StringArray(texts), &made);
  ASSERT_EQ(made->vt, VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(*std::get<StringArray>(Taken(*made)), *texts);
  OwnedValue second;
  LONG index = 1;
  ASSERT_EQ(::SafeArrayGetElement(made->parray, &index, &second), S_OK);
  ASSERT_EQ(second->vt, VT_BSTR);
  EXPECT_EQ(FromBasicString(second->bstrVal), u"b");
}

TEST_F(VariantConversionTest, NoTextsGoOutAsAnEmptyArray) {
  OwnedValue made;
  ToNative(*apartment, StringArray(), &made);
  ASSERT_EQ(made->vt, VT_ARRAY | VT_VARIANT);
  LONG last = 7;
  EXPECT_EQ(::SafeArrayGetUBound(made->parray, 1, &last), S_OK);
  EXPECT_EQ(last, -1);
  SAFEARRAY* const texts = ToTextArray(nullptr);
  VARTYPE type = VT_EMPTY;
  EXPECT_EQ(::SafeArrayGetVartype(texts, &type), S_OK);
  EXPECT_EQ(type, VT_BSTR);
  EXPECT_EQ(::SafeArrayGetUBound(texts, 1, &last), S_OK);
  EXPECT_EQ(last, -1);
  ::SafeArrayDestroy(texts);
}

TEST_F(VariantConversionTest, ATypedVariableGetsTheValueInItsOwnType) {
  signed char tiny = 0;
  Put(String(u"-7"), VT_I1, &tiny);
  EXPECT_EQ(tiny, -7);
  BYTE byte = 0;
  Put(std::int32_t{200}, VT_UI1, &byte);
  EXPECT_EQ(byte, 200);
  SHORT small = 0;
  Put(String(u"7"), VT_I2, &small);
  EXPECT_EQ(small, 7);
  USHORT natural = 0;
  Put(std::int32_t{65535}, VT_UI2, &natural);
  EXPECT_EQ(natural, 65535);
  for (const VARTYPE type : {VT_I4, VT_INT, VT_UI4, VT_UINT}) {
    LONG number = 0;
    Put(70000.0, type, &number);
    EXPECT_EQ(number, 70000);
  }
  for (const VARTYPE type : {VT_I8, VT_UI8}) {
    LONGLONG large = 0;
    Put(70000.0, type, &large);
    EXPECT_EQ(large, 70000);
  }
  float single = 0;
  Put(std::int32_t{3}, VT_R4, &single);
  EXPECT_EQ(single, 3.0F);
  double real = 0;
  Put(std::int16_t{3}, VT_R8, &real);
  EXPECT_EQ(real, 3.0);
  DATE date = 0;
  Put(Date{2.5}, VT_DATE, &date);
  EXPECT_EQ(date, 2.5);
  CY money{};
  Put(std::int32_t{3}, VT_CY, &money);
  EXPECT_EQ(money.int64, 30000);
  VARIANT_BOOL boolean = VARIANT_FALSE;
  Put(std::int32_t{3}, VT_BOOL, &boolean);
  EXPECT_EQ(boolean, VARIANT_TRUE);
  BasicString text(u"old");
  Put(std::int32_t{42}, VT_BSTR, text.Place());
  EXPECT_EQ(text.Text(), "42");
}

TEST_F(VariantConversionTest, AVariantTakesTheValueAsItIs) {
  OwnedValue place;
  place->vt = VT_I4;
  Put(String(u"text"), VT_VARIANT, &place);
  ASSERT_EQ(place->vt, VT_BSTR);
  EXPECT_EQ(FromBasicString(place->bstrVal), u"text");
}

TEST_F(VariantConversionTest, WhatAVariableHeldBeforeIsLetGoOf) {
  HostObject old;
  IDispatch* object = ComPointer<IDispatch>(&old).Detach();
  Put(ObjectRef(), VT_DISPATCH, &object);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(old.References(), 0U);

  IUnknown* plain = ComPointer<IUnknown>(&old).Detach();
  const ComPointer<IDispatch> face = Create(u"Entry");
  Put(apartment->ObjectOf(face.Get()), VT_UNKNOWN, &plain);
  EXPECT_EQ(ComPointer<IUnknown>(plain).As<IUnknown>().Get(), face.As<IUnknown>().Get());
  plain->Release();
  EXPECT_EQ(old.References(), 0U);

  OwnedValue variant;
  variant->vt = VT_DISPATCH;
  variant->pdispVal = ComPointer<IDispatch>(&old).Detach();
  Put(std::int32_t{1}, VT_VARIANT, &variant);
  EXPECT_EQ(variant->vt, VT_I4);
  EXPECT_EQ(old.References(), 0U);
}

TEST_F(VariantConversionTest, AVariableKeepsItsValueWhenTheNewOneDoesNotConvert) {
  LONG number = 5;
  EXPECT_EQ(RefusedBack(String(u"x"), VT_I4, &number), error::kTypeMismatch);
  EXPECT_EQ(number, 5);
  BYTE byte = 5;
  EXPECT_EQ(RefusedBack(std::int32_t{256}, VT_UI1, &byte), error::kOverflow);
  EXPECT_EQ(byte, 5);
  BasicString text(u"old");
  EXPECT_EQ(RefusedBack(Null{}, VT_BSTR, text.Place()), error::kTypeMismatch);
  EXPECT_EQ(text.Text(), "old");
}

TEST_F(VariantConversionTest, VariablesOfOtherTypesAreRefused) {
  DECIMAL decimal{};
  EXPECT_EQ(RefusedBack(std::int32_t{1}, VT_DECIMAL, &decimal), error::kTypeMismatch);
  SAFEARRAY* array = nullptr;
  EXPECT_EQ(RefusedBack(String(u"x"), VT_ARRAY | VT_BSTR, &array), error::kTypeMismatch);
  EXPECT_EQ(array, nullptr);
}

}  // namespace
}  // namespace norvo::com

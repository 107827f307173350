#include "com/ErrorInfo.h"

#include "com/ComTest.h"

namespace norvo::com {
namespace {

struct Mapping {
  HRESULT status;
  std::int32_t number;
};

TEST(ErrorInfoTest, ANumberTravelsInsideItsStatus) {
  for (const std::int32_t number : {1, 5, 13, 438, 450, 0xFFFF}) {
    const HRESULT status = StatusOf(RunTimeError(number));
    EXPECT_EQ(static_cast<std::uint32_t>(status), 0x800A0000U + static_cast<std::uint32_t>(number));
    EXPECT_EQ(ErrorOf(status).Number(), number);
  }
}

TEST(ErrorInfoTest, ANegativeNumberIsAStatusOfItsOwn) {
  EXPECT_EQ(StatusOf(RunTimeError(E_POINTER)), E_POINTER);
  EXPECT_EQ(ErrorOf(E_POINTER).Number(), E_POINTER);
}

TEST(ErrorInfoTest, ANumberThatDoesNotFitIsAnInvalidArgument) {
  EXPECT_EQ(static_cast<std::uint32_t>(StatusOf(RunTimeError(0x10000))), 0x800A0005U);
}

TEST(ErrorInfoTest, StatusesOfTheSystemHaveNumbers) {
  for (const auto& [status, number] : {
           Mapping{DISP_E_UNKNOWNNAME, error::kNoSuchMember},
           Mapping{DISP_E_MEMBERNOTFOUND, error::kNoSuchMember},
           Mapping{DISP_E_TYPEMISMATCH, error::kTypeMismatch},
           Mapping{DISP_E_OVERFLOW, error::kOverflow},
           Mapping{DISP_E_BADPARAMCOUNT, error::kWrongArguments},
           Mapping{DISP_E_PARAMNOTOPTIONAL, error::kWrongArguments},
           Mapping{E_OUTOFMEMORY, error::kOutOfMemory},
           Mapping{E_NOTIMPL, E_NOTIMPL},
       }) {
    SCOPED_TRACE(status);
    EXPECT_EQ(ErrorOf(status).Number(), number);
    EXPECT_TEXT(ErrorOf(status).Description(), DescriptionOf(number));
    EXPECT_TEXT(ErrorOf(status, u"Own words").Description(), u"Own words");
  }
}

TEST(ErrorInfoTest, AnEarlyBoundCallerFindsTheDescription) {
  const RunTimeError failure(error::kTypeMismatch, u"Own words");
  EXPECT_EQ(static_cast<std::uint32_t>(Report(failure, IID_IDispatch)), 0x800A000DU);
  ComPointer<IErrorInfo> information;
  ASSERT_EQ(::GetErrorInfo(0, information.Receive()), S_OK);
  BasicString description, source;
  GUID identifier{};
  EXPECT_EQ(information->GetDescription(description.Receive()), S_OK);
  EXPECT_EQ(information->GetSource(source.Receive()), S_OK);
  EXPECT_EQ(information->GetGUID(&identifier), S_OK);
  EXPECT_EQ(description.Text(), "Own words");
  EXPECT_EQ(source.Text(), "NorvoPlayList");
  EXPECT_EQ(identifier, IID_IDispatch);
}

TEST(ErrorInfoTest, ALateBoundCallerGetsAllOfIt) {
  EXCEPINFO information{};
  information.wCode = 99;
  EXPECT_EQ(Report(RunTimeError(error::kOverflow), information), DISP_E_EXCEPTION);
  EXPECT_EQ(static_cast<std::uint32_t>(information.scode), 0x800A0006U);
  EXPECT_EQ(information.wCode, 0) << "only one of the two may be set";
  EXPECT_EQ(Utf8(FromBasicString(information.bstrSource)), "NorvoPlayList");
  EXPECT_EQ(Utf8(FromBasicString(information.bstrDescription)), "Overflow");
  const RunTimeError back = ErrorOf(information);
  EXPECT_EQ(back.Number(), error::kOverflow);
  EXPECT_TEXT(back.Description(), u"Overflow");
}

TEST(ErrorInfoTest, AForeignObjectsErrorIsReadInAllItsForms) {
  EXCEPINFO code{};
  code.wCode = 1001;
  EXPECT_EQ(ErrorOf(code).Number(), 1001);
  EXCEPINFO status{};
  status.scode = static_cast<SCODE>(0x800A0035);
  status.bstrDescription = ::SysAllocString(L"Gone");
  const RunTimeError raised = ErrorOf(status);
  EXPECT_EQ(raised.Number(), 0x35);
  EXPECT_TEXT(raised.Description(), u"Gone");
  EXCEPINFO none{};
  EXPECT_EQ(ErrorOf(none).Number(), E_FAIL);
}

HRESULT WINAPI FillIn(EXCEPINFO* information) {
  information->wCode = 77;
  information->bstrDescription = ::SysAllocString(L"Filled in");
  return S_OK;
}

TEST(ErrorInfoTest, AnErrorThatIsFilledInLaterIsAskedFor) {
  EXCEPINFO information{};
  information.pfnDeferredFillIn = FillIn;
  const RunTimeError raised = ErrorOf(information);
  EXPECT_EQ(raised.Number(), 77);
  EXPECT_TEXT(raised.Description(), u"Filled in");
}

}  // namespace
}  // namespace norvo::com

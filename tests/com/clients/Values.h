#pragma once

#include <oleauto.h>
#include <windows.h>

#include <string>
#include <utility>

namespace norvo::clients {

/// A counted string of the system's.
class Text {
 public:
  Text() = default;
  explicit Text(const std::wstring& text)
      : text_(::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  ~Text() { ::SysFreeString(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  BSTR Get() const { return text_; }
  /// For a call that changes the text.
  BSTR* Place() { return &text_; }
  /// For a call that gives a text.
  BSTR* Receive() {
    ::SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  std::wstring All() const { return {text_, text_ + ::SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

/// The system's header does not say that the source stays as it is.
inline HRESULT CopyVariant(VARIANT* place, const VARIANT& value) {
  return ::VariantCopy(place, const_cast<VARIANT*>(&value));
}

/// A variant of the system's.
class Value {
 public:
  Value() { ::VariantInit(&value_); }
  explicit Value(long number) : Value() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  explicit Value(bool truth) : Value() {
    value_.vt = VT_BOOL;
    value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit Value(const wchar_t* text) : Value() {
    value_.vt = VT_BSTR;
    value_.bstrVal = ::SysAllocString(text);
  }
  explicit Value(IDispatch* object) : Value() {
    value_.vt = VT_DISPATCH;
    value_.pdispVal = object;
    if (object != nullptr) object->AddRef();
  }
  Value(const Value& other) : Value() { CopyVariant(&value_, other.value_); }
  Value& operator=(const Value& other) {
    CopyVariant(&value_, other.value_);
    return *this;
  }
  ~Value() { ::VariantClear(&value_); }

  VARTYPE Type() const { return value_.vt; }
  const VARIANT& Get() const { return value_; }
  VARIANT* Place() { return &value_; }
  VARIANT* Receive() {
    ::VariantClear(&value_);
    return &value_;
  }
  /// As a text, whatever it is.
  std::wstring All() const {
    VARIANT text;
    ::VariantInit(&text);
    if (FAILED(
            ::VariantChangeType(&text, const_cast<VARIANT*>(&value_), VARIANT_ALPHABOOL, VT_BSTR)))
      return L"?";
    std::wstring all(text.bstrVal, ::SysStringLen(text.bstrVal));
    ::VariantClear(&text);
    return all;
  }

 private:
  VARIANT value_;
};

}  // namespace norvo::clients

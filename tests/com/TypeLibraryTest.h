#pragma once

#include <string>
#include <vector>

#include "automation/MemberTable.h"
#include "com/ComTest.h"
#include "com/Faces.h"

namespace norvo::com {

/// A function of an interface as the type library describes it; released at the end.
class Function {
 public:
  Function(ITypeInfo& type, UINT index) : type_(type) {
    EXPECT_EQ(type.GetFuncDesc(index, &description_), S_OK);
    BSTR names[8] = {};
    UINT count = 0;
    EXPECT_EQ(type.GetNames(description_->memid, names, 8, &count), S_OK);
    for (UINT i = 0; i < count; ++i) {
      names_.push_back(FromBasicString(names[i]));
      ::SysFreeString(names[i]);
    }
  }
  ~Function() { type_.ReleaseFuncDesc(description_); }
  Function(const Function&) = delete;
  Function& operator=(const Function&) = delete;

  const FUNCDESC* operator->() const { return description_; }
  /// The member's, then those of its parameters.
  const std::vector<String>& Names() const { return names_; }
  std::size_t Parameters() const { return static_cast<std::size_t>(description_->cParams); }
  const ELEMDESC& Parameter(std::size_t index) const {
    return description_->lprgelemdescParam[index];
  }
  bool HasResult() const {
    return Parameters() != 0 &&
           (Parameter(Parameters() - 1).paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
  }
  String Help() const {
    BasicString help;
    type_.GetDocumentation(description_->memid, nullptr, help.Receive(), nullptr, nullptr);
    return FromBasicString(help.Get());
  }

 private:
  ITypeInfo& type_;
  FUNCDESC* description_ = nullptr;
  std::vector<String> names_;
};

/// The type library as the built DLL carries it.
class TypeLibraryTest : public ComTest {
 protected:
  TypeLibraryTest() {
    const std::string path = NORVO_DLL;
    EXPECT_EQ(::LoadTypeLibEx(std::wstring(path.begin(), path.end()).c_str(), REGKIND_NONE,
                              library.Receive()),
              S_OK);
  }

  /// The table of functions of a class's interface, as the DLL's type library describes it.
  ComPointer<ITypeInfo> TypeOf(StringView className) {
    const String name = u"_" + String(className);
    ComPointer<ITypeInfo> dispatch, dual;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
      if (NameOf(i) == name) library->GetTypeInfo(i, dispatch.Receive());
      if (dispatch) break;
    }
    HREFTYPE reference = 0;
    // The other side of a dual interface goes by this number.
    EXPECT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(dispatch->GetRefTypeInfo(reference, dual.Receive()), S_OK);
    return dual;
  }
  String NameOf(UINT index) {
    BasicString name;
    library->GetDocumentation(static_cast<INT>(index), name.Receive(), nullptr, nullptr, nullptr);
    return FromBasicString(name.Get());
  }
  static UINT CountFunctions(ITypeInfo& type) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(type.GetTypeAttr(&attributes), S_OK);
    const UINT count = attributes->cFuncs;
    type.ReleaseTypeAttr(attributes);
    return count;
  }
  const MemberTable& TableOf(StringView className) {
    return *apartment->Create(className)->Members();
  }

  ComPointer<ITypeLib> library;
};

}  // namespace norvo::com

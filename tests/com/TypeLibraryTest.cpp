// Every member of the type library against the class's member table: one that was forgotten or
// changed in one of them fails here.

#include "com/TypeLibraryTest.h"

#include <algorithm>
#include <array>

namespace norvo::com {
namespace {

/// "VARIANT", "long" and so on, as the type library has it; "+" before what is referred to.
std::string TypeText(ITypeInfo& type, const TYPEDESC& description) {
  switch (description.vt) {
    case VT_BOOL:
      return "Boolean";
    case VT_UI1:
      return "Byte";
    case VT_I2:
      return "Int16";
    case VT_I4:
      return "Int32";
    case VT_R8:
      return "Double";
    case VT_BSTR:
      return "Text";
    case VT_VARIANT:
      return "Any";
    case VT_DISPATCH:
      return "Object";
    case VT_SAFEARRAY:
      return TypeText(type, *description.lptdesc) + "s";
    case VT_USERDEFINED: {
      ComPointer<ITypeInfo> other;
      TYPEATTR* attributes = nullptr;
      if (FAILED(type.GetRefTypeInfo(description.hreftype, other.Receive()))) return "nothing";
      if (FAILED(other->GetTypeAttr(&attributes))) return "nothing";
      const bool isObject =
          attributes->typekind == TKIND_DISPATCH || attributes->typekind == TKIND_INTERFACE;
      other->ReleaseTypeAttr(attributes);
      return isObject ? "interface" : "nothing";
    }
    case VT_PTR: {
      const std::string target = TypeText(type, *description.lptdesc);
      return target == "interface" ? "Object" : "+" + target;
    }
    default:
      return "type " + std::to_string(description.vt);
  }
}

std::string TypeText(ValueType type) {
  static constexpr std::array kNames{"none",   "Boolean", "Byte",   "Int16", "Int32",
                                     "Double", "Text",    "Object", "Texts", "Any"};
  return kNames.at(static_cast<std::size_t>(type));
}

/// How a member is used, as either side says it.
struct Uses {
  bool call = false, get = false, put = false, set = false;

  void Add(INVOKEKIND kind) {
    call = call || kind == INVOKE_FUNC;
    get = get || kind == INVOKE_PROPERTYGET;
    put = put || kind == INVOKE_PROPERTYPUT;
    set = set || kind == INVOKE_PROPERTYPUTREF;
  }
};

TEST_F(TypeLibraryTest, TheTypeLibraryHasTheClassesAndTheirInterfacesAndNoMore) {
  std::vector<String> expected{u"__Entry"}, found;
  for (const PublicClass& row : PublicClasses()) {
    expected.emplace_back(row.name);
    expected.push_back(u"_" + String(row.name));
  }
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) found.push_back(NameOf(i));
  std::ranges::sort(expected);
  std::ranges::sort(found);
  EXPECT_EQ(Utf8(found), Utf8(expected));
}

TEST_F(TypeLibraryTest, MembersAreTheSameInTheSameOrder) {
  for (const PublicClass& row : PublicClasses()) {
    const MemberTable& table = TableOf(row.name);
    const ComPointer<ITypeInfo> type = TypeOf(row.name);
    std::vector<String> expected, found;
    for (const Member& member : table.All()) expected.emplace_back(member.name);
    MEMBERID last = 0;
    for (UINT i = 0; i < CountFunctions(*type.Get()); ++i) {
      const Function function(*type.Get(), i);
      EXPECT_EQ(static_cast<UINT>(function->oVft), (7 + i) * sizeof(void*)) << "IDispatch has 7";
      if (function->memid != last) {
        EXPECT_EQ(function->memid, last + 1);
        found.push_back(function.Names()[0]);
      }
      last = function->memid;
    }
    EXPECT_EQ(Utf8(found), Utf8(expected)) << Utf8(row.name);
  }
}

TEST_F(TypeLibraryTest, MembersAreUsedInTheSameWays) {
  for (const PublicClass& row : PublicClasses()) {
    const std::vector<Member>& members = TableOf(row.name).All();
    const ComPointer<ITypeInfo> type = TypeOf(row.name);
    std::vector<Uses> uses(members.size());
    for (UINT i = 0; i < CountFunctions(*type.Get()); ++i) {
      const Function function(*type.Get(), i);
      uses.at(static_cast<std::size_t>(function->memid) - 1).Add(function->invkind);
    }
    for (std::size_t i = 0; i < members.size(); ++i) {
      SCOPED_TRACE(Utf8(row.name) + "." + Utf8(members[i].name));
      const bool assignable = members[i].let != nullptr;
      const bool isObject = members[i].type == ValueType::Object;
      EXPECT_EQ(uses[i].call, members[i].isMethod);
      EXPECT_EQ(uses[i].get, !members[i].isMethod && members[i].call != nullptr);
      EXPECT_EQ(uses[i].put, assignable && !isObject);
      // A variant takes an object as well.
      if (members[i].type != ValueType::Any) {
        EXPECT_EQ(uses[i].set, assignable && isObject);
      }
      if (!assignable) {
        EXPECT_FALSE(uses[i].set);
      }
    }
  }
}

TEST_F(TypeLibraryTest, TypesAndMarksOfParametersAreTheSame) {
  for (const PublicClass& row : PublicClasses()) {
    const std::vector<Member>& members = TableOf(row.name).All();
    const ComPointer<ITypeInfo> type = TypeOf(row.name);
    for (UINT i = 0; i < CountFunctions(*type.Get()); ++i) {
      const Function function(*type.Get(), i);
      const Member& member = members.at(static_cast<std::size_t>(function->memid) - 1);
      SCOPED_TRACE(Utf8(row.name) + "." + Utf8(member.name));
      EXPECT_NE(function.Help(), u"");
      const bool isLet = (function->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
      const std::vector<Parameter> expected =
          isLet ? std::vector<Parameter>{{u"value", member.type, member.letByReference, false}}
                : member.parameters;
      const bool hasResult = !isLet && member.type != ValueType::None;
      ASSERT_EQ(function.HasResult(), hasResult);
      ASSERT_EQ(function.Parameters(), expected.size() + (hasResult ? 1 : 0));
      for (std::size_t k = 0; k < expected.size(); ++k) {
        const ELEMDESC& found = function.Parameter(k);
        const USHORT flags = found.paramdesc.wParamFlags;
        EXPECT_EQ(TypeText(*type.Get(), found.tdesc),
                  (expected[k].byReference ? "+" : "") + TypeText(expected[k].type));
        EXPECT_NE(flags & PARAMFLAG_FIN, 0);
        EXPECT_EQ((flags & PARAMFLAG_FOUT) != 0, expected[k].byReference);
        EXPECT_EQ((flags & PARAMFLAG_FOPT) != 0, expected[k].optional);
        // The system does not tell what the value of an assignment is called.
        if (!isLet) {
          EXPECT_TEXT(function.Names().at(k + 1), expected[k].name);
        }
      }
      if (hasResult) {
        EXPECT_EQ(TypeText(*type.Get(), function.Parameter(expected.size()).tdesc),
                  "+" + TypeText(member.type));
      }
    }
  }
}

}  // namespace
}  // namespace norvo::com

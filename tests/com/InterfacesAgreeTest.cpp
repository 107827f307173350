// The three faces of every member: the class's member table, the type library, and the entry in the
// dual interface's table of functions. One that was forgotten or changed in one of them fails here.

#include <algorithm>
#include <array>
#include <utility>

#include "com/ComTest.h"
#include "com/Face.h"
#include "com/Faces.h"

namespace norvo::com {
namespace {

/// Stands behind a face in the place of a real object: notes which member of its table was called
/// and how, gives a set answer, and changes every argument that is passed by reference.
class Spy final : public TableObject {
 public:
  explicit Spy(const MemberTable& real) : table_(real.ClassName(), Spied(real.All())) {}

  struct Seen {
    std::size_t member = 0;
    bool isLet = false;
    std::vector<Variant> arguments;
  };
  /// What was called since the last question.
  std::vector<Seen> TakeSeen() { return std::exchange(seen_, {}); }

  Variant answer;
  std::vector<Variant> changes;  // per argument

 protected:
  const MemberTable& Table() const override { return table_; }

 private:
  static constexpr std::size_t kMostMembers = 40;

  template <std::size_t kMember>
  static Variant Call(AutomationObject& object, Arguments arguments) {
    auto& spy = static_cast<Spy&>(object);
    spy.seen_.push_back({kMember, false, {arguments.begin(), arguments.end()}});
    for (std::size_t i = 0; i < arguments.size(); ++i) arguments[i] = spy.changes.at(i);
    return spy.answer;
  }
  template <std::size_t kMember>
  static void Put(AutomationObject& object, const Variant& value) {
    static_cast<Spy&>(object).seen_.push_back({kMember, true, {value}});
  }
  template <std::size_t... kMembers>
  static void Bind(std::vector<Member>& members, std::index_sequence<kMembers...>) {
    const std::array calls{&Call<kMembers>...};
    const std::array lets{&Put<kMembers>...};
    for (std::size_t i = 0; i < members.size(); ++i) {
      if (members[i].call != nullptr) members[i].call = calls.at(i);
      if (members[i].let != nullptr) members[i].let = lets.at(i);
    }
  }
  static std::vector<Member> Spied(std::vector<Member> members) {
    Bind(members, std::make_index_sequence<kMostMembers>());
    return members;
  }

  MemberTable table_;
  std::vector<Seen> seen_;
};

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

/// One class with its face over a spy.
struct Faced {
  ComPointer<IDispatch> face;
  std::shared_ptr<Spy> spy;
};

template <class Binding, class Class>
Faced FaceOverSpy(const std::shared_ptr<Apartment>& apartment, const MemberTable& real) {
  auto spy = std::make_shared<Spy>(real);
  const ComPointer<LibraryObject> face(
      new Face<Binding, Class>(Shown{apartment, spy, *spy, *spy->Members()}));
  return {face.As<IDispatch>(__uuidof(typename Binding::DualInterface)), spy};
}

using Maker = Faced (*)(const std::shared_ptr<Apartment>&, const MemberTable&);

struct ClassRow {
  StringView name;
  Maker make;
};

constexpr ClassRow kClasses[] = {
    {u"helperMan", FaceOverSpy<HelperManBinding, ::helperMan>},
    {u"PlayList", FaceOverSpy<PlayListBinding, ::PlayList>},
    {u"PlayLists", FaceOverSpy<PlayListsBinding, ::PlayLists>},
    {u"Entries", FaceOverSpy<EntriesBinding, ::Entries>},
    {u"Entry", FaceOverSpy<EntryBinding, ::Entry>},
    {u"AsxEntry", FaceOverSpy<AsxEntryBinding, ::AsxEntry>},
    {u"M3UEntry", FaceOverSpy<M3UEntryBinding, ::M3UEntry>},
    {u"PlsEntry", FaceOverSpy<PlsEntryBinding, ::PlsEntry>},
    {u"ArtistList", FaceOverSpy<ArtistListBinding, ::ArtistList>},
    {u"ArtistItem", FaceOverSpy<ArtistItemBinding, ::ArtistItem>},
};

class InterfacesAgreeTest : public ComTest {
 protected:
  InterfacesAgreeTest() {
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

TEST_F(InterfacesAgreeTest, EveryClassIsInTheList) {
  std::vector<String> listed, made;
  for (const ClassRow& row : kClasses) listed.emplace_back(row.name);
  for (const PublicClass& each : PublicClasses()) made.emplace_back(each.name);
  EXPECT_EQ(listed, made);
}

TEST_F(InterfacesAgreeTest, TheTypeLibraryHasTheClassesAndTheirInterfacesAndNoMore) {
  std::vector<String> expected{u"__Entry"}, found;
  for (const ClassRow& row : kClasses) {
    expected.emplace_back(row.name);
    expected.push_back(u"_" + String(row.name));
  }
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) found.push_back(NameOf(i));
  std::ranges::sort(expected);
  std::ranges::sort(found);
  EXPECT_EQ(Utf8(found), Utf8(expected));
}

TEST_F(InterfacesAgreeTest, MembersAreTheSameInTheSameOrder) {
  for (const ClassRow& row : kClasses) {
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

TEST_F(InterfacesAgreeTest, MembersAreUsedInTheSameWays) {
  for (const ClassRow& row : kClasses) {
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

TEST_F(InterfacesAgreeTest, TypesAndMarksOfParametersAreTheSame) {
  for (const ClassRow& row : kClasses) {
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

/// The value of an argument or a result on its way through an early-bound call.
class Slot {
 public:
  explicit Slot(const TYPEDESC& description) {
    isReference_ = description.vt == VT_PTR && description.lptdesc->vt != VT_USERDEFINED;
    const TYPEDESC& target = isReference_ ? *description.lptdesc : description;
    type_ = target.vt == VT_PTR ? VARTYPE{VT_DISPATCH} : target.vt;
    if (target.vt == VT_SAFEARRAY) type_ = VT_ARRAY | VT_BSTR;
    if (target.vt == VT_PTR) object_ = target.lptdesc;
  }

  bool IsReference() const { return isReference_; }
  VARTYPE Type() const { return type_; }
  /// Of what interface the object is; null for any.
  const TYPEDESC* Object() const { return object_; }

  /// What is behind the slot, in the variable of a caller.
  OwnedValue& Variable() { return variable_; }

  /// What the call is passed: the value, or its address.
  VARIANT Passed() {
    if (type_ == VT_VARIANT && !isReference_) return *variable_;
    VARIANT passed;
    ::VariantInit(&passed);
    passed.vt = isReference_ ? VARTYPE{VT_PTR} : type_;
    VARIANT& variable = *&variable_;
    if (isReference_) {
      passed.byref = type_ == VT_VARIANT ? static_cast<void*>(&variable) : &variable.lVal;
    } else {
      passed.llVal = variable.llVal;
    }
    return passed;
  }

 private:
  bool isReference_ = false;
  VARTYPE type_ = VT_EMPTY;
  const TYPEDESC* object_ = nullptr;
  OwnedValue variable_;
};

/// Values of a type that tell one another apart, with the form in which the library sees them.
class Samples {
 public:
  Samples(Apartment& apartment, ITypeInfo& type) : apartment_(apartment), type_(type) {}

  Variant Next(const Slot& slot) {
    ++number_;
    switch (slot.Type()) {
      case VT_BOOL:
        return true;
      case VT_I2:
        return static_cast<std::int16_t>(number_);
      case VT_R8:
        return number_ + 0.5;
      case VT_BSTR:
      case VT_VARIANT:
        return u"text " + ToText(Variant(number_));
      case VT_DISPATCH:
        return apartment_.Create(slot.Object() == nullptr ? String(u"Entry") : ClassOf(slot));
      case VT_ARRAY | VT_BSTR:
        return std::make_shared<const std::vector<String>>(std::vector<String>{u"a", u"b"});
      default:
        return number_;
    }
  }

 private:
  String ClassOf(const Slot& slot) {
    ComPointer<ITypeInfo> other;
    BasicString name;
    type_.GetRefTypeInfo(slot.Object()->hreftype, other.Receive());
    other->GetDocumentation(MEMBERID_NIL, name.Receive(), nullptr, nullptr, nullptr);
    return FromBasicString(name.Get()).substr(1);
  }

  Apartment& apartment_;
  ITypeInfo& type_;
  std::int32_t number_ = 100;
};

/// Calls one function through its place in the interface's table, and looks where it came out.
class SlotCall {
 public:
  SlotCall(Apartment& apartment, const Faced& faced, ITypeInfo& type, const Function& function)
      : apartment_(apartment), faced_(faced), function_(function), samples_(apartment, type) {
    for (std::size_t i = 0; i < function.Parameters(); ++i) {
      slots_.push_back(std::make_unique<Slot>(function.Parameter(i).tdesc));
    }
    if (function.HasResult()) {
      result_ = std::move(slots_.back());
      slots_.pop_back();
      faced.spy->answer = samples_.Next(*result_);
    }
    faced.spy->changes.clear();
    for (const auto& slot : slots_) {
      given_.push_back(samples_.Next(*slot));
      changed_.push_back(slot->IsReference() ? samples_.Next(*slot) : given_.back());
      ToNative(apartment, given_.back(), &slot->Variable());
    }
    faced.spy->changes = changed_;
  }

  void Run() {
    std::vector<VARIANT> passed;
    for (const auto& slot : slots_) passed.push_back(slot->Passed());
    if (result_) passed.push_back(result_->Passed());
    std::vector<VARTYPE> types;
    std::vector<VARIANTARG*> places;
    for (std::size_t i = 0; i < passed.size(); ++i) {
      const bool isVariant = i < slots_.size() && slots_[i]->Type() == VT_VARIANT;
      types.push_back(isVariant && !slots_[i]->IsReference() ? VARTYPE{VT_VARIANT} : passed[i].vt);
      places.push_back(&passed[i]);
    }
    OwnedValue status;
    ASSERT_EQ(::DispCallFunc(faced_.face.Get(), static_cast<ULONG_PTR>(function_->oVft),
                             function_->callconv, VT_ERROR, static_cast<UINT>(passed.size()),
                             types.data(), places.data(), &status),
              S_OK);
    EXPECT_EQ(status->scode, S_OK);
  }

  void Check() {
    const std::vector<Spy::Seen> seen = faced_.spy->TakeSeen();
    ASSERT_EQ(seen.size(), 1U);
    const bool isLet = (function_->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
    EXPECT_EQ(seen[0].member + 1, static_cast<std::size_t>(function_->memid));
    EXPECT_EQ(seen[0].isLet, isLet);
    ASSERT_EQ(seen[0].arguments.size(), given_.size());
    for (std::size_t i = 0; i < given_.size(); ++i) {
      EXPECT_TRUE(IsSame(seen[0].arguments[i], given_[i])) << "argument " << i;
      if (!isLet) {
        EXPECT_TRUE(Holds(*slots_[i], changed_[i])) << "written back to " << i;
      }
    }
    if (result_) {
      EXPECT_TRUE(Holds(*result_, faced_.spy->answer)) << "result";
    }
  }

 private:
  static bool IsSame(const Variant& seen, const Variant& expected) {
    // Booleans come as the number with all bits set.
    if (const auto* boolean = std::get_if<bool>(&expected)) return ToBoolean(seen) == *boolean;
    const auto* texts = std::get_if<StringArray>(&expected);
    if (texts != nullptr) return *std::get<StringArray>(seen) == **texts;
    return seen == expected;
  }
  /// The variable behind the slot has the value.
  bool Holds(Slot& slot, const Variant& expected) {
    VARIANT& variable = *&slot.Variable();
    if (slot.Type() != VT_VARIANT) variable.vt = slot.Type();
    return IsSame(FromNative(apartment_, variable), expected);
  }

  Apartment& apartment_;
  const Faced& faced_;
  const Function& function_;
  Samples samples_;
  std::vector<std::unique_ptr<Slot>> slots_;
  std::unique_ptr<Slot> result_;
  std::vector<Variant> given_;
  std::vector<Variant> changed_;
};

TEST_F(InterfacesAgreeTest, EveryPlaceInTheTableOfFunctionsReachesItsMember) {
  for (const ClassRow& row : kClasses) {
    const Faced faced = row.make(apartment, TableOf(row.name));
    ASSERT_TRUE(faced.face);
    const ComPointer<ITypeInfo> type = TypeOf(row.name);
    for (UINT i = 0; i < CountFunctions(*type.Get()); ++i) {
      const Function function(*type.Get(), i);
      SCOPED_TRACE(Utf8(row.name) + "." + Utf8(function.Names()[0]));
      SlotCall call(*apartment, faced, *type.Get(), function);
      call.Run();
      call.Check();
    }
  }
}

}  // namespace
}  // namespace norvo::com

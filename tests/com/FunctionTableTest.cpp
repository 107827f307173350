// Every place in the table of functions of every dual interface, called as early-bound clients call
// it: a binding that was forgotten, or leads to another member, fails here.

#include <algorithm>
#include <array>
#include <utility>

#include "com/Face.h"
#include "com/TypeLibraryTest.h"

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

class FunctionTableTest : public TypeLibraryTest {};

TEST_F(FunctionTableTest, EveryClassIsInTheList) {
  std::vector<String> listed, made;
  for (const ClassRow& row : kClasses) listed.emplace_back(row.name);
  for (const PublicClass& each : PublicClasses()) made.emplace_back(each.name);
  EXPECT_EQ(listed, made);
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

TEST_F(FunctionTableTest, EveryPlaceInTheTableOfFunctionsReachesItsMember) {
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

#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "automation/AutomationObject.h"
#include "automation/Conversions.h"
#include "automation/RunTimeError.h"

namespace norvo {

/// One parameter as the public interface gives it.
struct Parameter {
  StringView name;                  ///< as the interface spells it
  ValueType type = ValueType::Any;  ///< what the argument is converted to
  bool byReference = false;         ///< the member may write its result back
  bool optional = false;            ///< it may be left out
};

/// @{
/// How a parameter is passed; its type comes from the C++ signature.
inline Parameter In(StringView name) {
  return {name, ValueType::Any, false, false};
}
inline Parameter ByRef(StringView name) {
  return {name, ValueType::Any, true, false};
}
inline Parameter Optional(StringView name) {
  return {name, ValueType::Any, false, true};
}
/// @}

/// One public member: a method, or a property with a getter, a setter or both.
struct Member {
  /// Calls the member of an object of its class.
  using Reader = Variant (*)(AutomationObject&, Arguments);
  /// Sets the property of an object of its class.
  using Writer = void (*)(AutomationObject&, const Variant&);

  StringView name;                    ///< as the interface spells it
  bool isMethod = false;              ///< else a property
  ValueType type = ValueType::None;   ///< result of a method, value of a property
  std::vector<Parameter> parameters;  ///< of a method, or of a property's getter
  bool letByReference = false;        ///< the setter takes its value by reference
  Reader call = nullptr;  ///< method call or property get; null for a property without get
  Writer let = nullptr;   ///< null for a method and for a property without let
};

namespace detail {

/// Maps a C++ type to its automation type and converts both ways.
template <class T>
struct Binding;

template <>
struct Binding<bool> {
  static constexpr ValueType kType = ValueType::Boolean;
  static bool From(const Variant& value) { return ToBoolean(value); }
};
template <>
struct Binding<std::uint8_t> {
  static constexpr ValueType kType = ValueType::Byte;
  static std::uint8_t From(const Variant& value) { return ToByte(value); }
};
template <>
struct Binding<std::int16_t> {
  static constexpr ValueType kType = ValueType::Int16;
  static std::int16_t From(const Variant& value) { return ToInt16(value); }
};
template <>
struct Binding<std::int32_t> {
  static constexpr ValueType kType = ValueType::Int32;
  static std::int32_t From(const Variant& value) { return ToInt32(value); }
};
template <>
struct Binding<double> {
  static constexpr ValueType kType = ValueType::Double;
  static double From(const Variant& value) { return ToDouble(value); }
};
template <>
struct Binding<String> {
  static constexpr ValueType kType = ValueType::Text;
  static String From(const Variant& value) { return ToText(value); }
};
/// A view of the argument, or of what stays until the object's next change.
template <>
struct Binding<StringView> : Binding<String> {};
template <>
struct Binding<Variant> {
  static constexpr ValueType kType = ValueType::Any;
  static Variant From(const Variant& value) { return value; }
};
template <>
struct Binding<StringArray> {
  static constexpr ValueType kType = ValueType::TextArray;
};
template <>
struct Binding<void> {
  static constexpr ValueType kType = ValueType::None;
};
/// References to objects: any class of the library, or any object at all.
template <class T>
struct Binding<std::shared_ptr<T>> {
  static constexpr ValueType kType = ValueType::Object;
  static std::shared_ptr<T> From(const Variant& value) {
    ObjectRef object = ToObject(value);
    if constexpr (std::is_same_v<T, AutomationObject>) {
      return object;
    } else {
      auto typed = std::dynamic_pointer_cast<T>(object);
      if (object && !typed) throw RunTimeError(error::kTypeMismatch);
      return typed;
    }
  }
};

template <class Result>
Variant Wrap(Result&& value) {
  using Plain = std::remove_cvref_t<Result>;
  if constexpr (std::is_convertible_v<Plain, ObjectRef>) {
    return ObjectRef(std::forward<Result>(value));
  } else if constexpr (std::is_same_v<Plain, StringView>) {
    return String(value);
  } else {
    return Variant(std::forward<Result>(value));
  }
}

/// What holds an argument while its function runs.
template <class Parameter>
using Held = std::conditional_t<std::is_same_v<std::remove_cvref_t<Parameter>, StringView>, String,
                                std::remove_cvref_t<Parameter>>;

template <class Function>
struct Signature;

template <class R, class C, class... A>
struct Signature<R (C::*)(A...)> {
  using Class = C;
  using Result = std::remove_cvref_t<R>;

  static std::vector<ValueType> Types() { return {Binding<std::remove_cvref_t<A>>::kType...}; }

  template <auto kFunction>
  static Variant Invoke(AutomationObject& object, Arguments arguments) {
    return InvokeWith<kFunction>(static_cast<C&>(object), arguments,
                                 std::index_sequence_for<A...>{});
  }

 private:
  /// By-reference parameters (plain references in C++) are written back after the call. What the
  /// function leaves alone stays in the caller's own type: 1.25 does not become 1 by being looked
  /// at. An empty variable becomes "no object", though: a script cannot ask Empty whether it is
  /// Nothing.
  template <class Parameter, class Value>
  static void WriteBack(Variant& argument, Value& value) {
    if constexpr (std::is_lvalue_reference_v<Parameter> &&
                  !std::is_const_v<std::remove_reference_t<Parameter>>) {
      const bool lacksObject = Binding<Value>::kType == ValueType::Object &&
                               std::holds_alternative<std::monostate>(argument);
      if (lacksObject || Binding<Value>::From(argument) != value) argument = Wrap(std::move(value));
    }
  }

  template <auto kFunction, std::size_t... I>
  static Variant InvokeWith(C& object, Arguments arguments, std::index_sequence<I...>) {
    if (arguments.size() != sizeof...(A)) throw RunTimeError(error::kWrongArguments);
    std::tuple<Held<A>...> values{Binding<Held<A>>::From(arguments[I])...};
    if constexpr (std::is_void_v<R>) {
      (object.*kFunction)(std::get<I>(values)...);
      (WriteBack<A>(arguments[I], std::get<I>(values)), ...);
      return {};
    } else {
      Variant result = Wrap((object.*kFunction)(std::get<I>(values)...));
      (WriteBack<A>(arguments[I], std::get<I>(values)), ...);
      return result;
    }
  }
};
template <class R, class C, class... A>
struct Signature<R (C::*)(A...) const> : Signature<R (C::*)(A...)> {};

template <auto kSetter>
void InvokeLet(AutomationObject& object, const Variant& value) {
  Variant argument = value;
  Signature<decltype(kSetter)>::template Invoke<kSetter>(object, Arguments(&argument, 1));
}

}  // namespace detail

/// A method bound to a C++ member function.
template <auto kFunction>
Member Method(StringView name, std::initializer_list<Parameter> parameters = {}) {
  using Signature = detail::Signature<decltype(kFunction)>;
  Member member;
  member.name = name;
  member.isMethod = true;
  member.type = detail::Binding<typename Signature::Result>::kType;
  member.parameters = parameters;
  const std::vector<ValueType> types = Signature::Types();
  for (std::size_t i = 0; i < types.size(); ++i) member.parameters.at(i).type = types[i];
  member.call = &Signature::template Invoke<kFunction>;
  return member;
}

/// A property bound to a C++ getter alone.
template <auto kGetter>
Member ReadOnly(StringView name) {
  Member member = Method<kGetter>(name);
  member.isMethod = false;
  return member;
}

/// A property bound to a C++ setter alone.
template <auto kSetter>
Member WriteOnly(StringView name) {
  Member member;
  member.name = name;
  member.type = detail::Signature<decltype(kSetter)>::Types().front();
  member.let = &detail::InvokeLet<kSetter>;
  return member;
}

/// A property bound to a C++ getter and setter.
template <auto kGetter, auto kSetter>
Member Property(StringView name) {
  Member member = ReadOnly<kGetter>(name);
  member.let = &detail::InvokeLet<kSetter>;
  return member;
}

/// The same property, whose setter takes its value by reference.
inline Member LetByReference(Member member) {
  member.letByReference = true;
  return member;
}

/// The public interface of one class: its members in their order, found by name.
class MemberTable {
 public:
  /// The names must live as long as the table.
  MemberTable(StringView className, std::vector<Member> members);

  /// Of all objects of the class.
  StringView ClassName() const { return className_; }
  /// The members in the order of the interface.
  const std::vector<Member>& All() const { return members_; }
  /// The member of that name; null when there is none. Case does not matter.
  const Member* Find(StringView name) const;

 private:
  StringView className_;
  std::vector<Member> members_;
  std::unordered_map<StringView, std::size_t, CaselessHash, CaselessEqual> byName_;
};

/// Base of the library's own classes: answers every call by name from the class's member table.
class TableObject : public AutomationObject {
 public:
  using AutomationObject::Call;
  using AutomationObject::Get;
  using AutomationObject::Let;

  StringView ClassName() const final { return Table().ClassName(); }
  const MemberTable* Members() const final { return &Table(); }
  Variant Get(StringView name, Arguments arguments) final;
  void Let(StringView name, Arguments arguments, const Variant& value) final;
  Variant Call(StringView name, Arguments arguments) final;

 protected:
  /// The class's members; the same table for all its objects.
  virtual const MemberTable& Table() const = 0;

 private:
  const Member& Require(StringView name) const;
};

/// Reads one property of many objects by its name, and looks the name up only when the class
/// changes.
class PropertyReader {
 public:
  /// `name` must live as long as the reader.
  explicit PropertyReader(StringView name) : name_(name) {}
  /// The property's value; raises what `AutomationObject::Get` raises.
  Variant operator()(AutomationObject& object);

 private:
  StringView name_;
  const MemberTable* table_ = nullptr;
  const Member* member_ = nullptr;  // null: the object is asked by name
};

}  // namespace norvo

#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "automation/Conversions.h"
#include "automation/MemberTable.h"
#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"
#include "support/RaisedErrors.h"

namespace norvo {

/// Names and values of properties, to be set one after the other.
using Values = std::initializer_list<std::pair<StringView, Variant>>;

inline void SetAll(AutomationObject& object, Values values) {
  for (const auto& [name, value] : values) object.Let(name, value);
}

inline String TextOf(AutomationObject& object, StringView name) {
  return ToText(object.Get(name));
}

/// An object that is not of the library: it answers to the properties it was given, counts how
/// often each is read, and raises when told to.
class ForeignObject final : public AutomationObject {
 public:
  using AutomationObject::Call;
  using AutomationObject::Get;
  using AutomationObject::Let;

  ForeignObject(Values values) {
    for (const auto& [name, value] : values) properties_[String(name)] = value;
  }

  StringView ClassName() const override { return u"Foreign"; }
  Variant Get(StringView name, Arguments) override {
    reads.emplace_back(name);
    if (shortOfMemory) throw std::bad_alloc();
    const auto found = properties_.find(String(name));
    if (found == properties_.end()) throw RunTimeError(error::kNoSuchMember);
    return found->second;
  }
  void Let(StringView name, Arguments, const Variant& value) override {
    properties_[String(name)] = value;
  }
  Variant Call(StringView name, Arguments arguments) override { return Get(name, arguments); }

  std::vector<String> reads;
  bool shortOfMemory = false;

 private:
  std::map<String, Variant> properties_;
};

/// A script's object that does something to its collection while it is asked; each of its values
/// is its name.
class Meddler final : public AutomationObject {
 public:
  using AutomationObject::Call;
  using AutomationObject::Get;
  using AutomationObject::Let;

  Meddler(StringView name, std::function<void()> meddle)
      : name_(name), meddle_(std::move(meddle)) {}

  StringView ClassName() const override { return u"Meddler"; }
  Variant Get(StringView, Arguments) override {
    meddle_();
    return name_;
  }
  void Let(StringView, Arguments, const Variant&) override {}
  Variant Call(StringView name, Arguments arguments) override { return Get(name, arguments); }

 private:
  String name_;
  std::function<void()> meddle_;
};

/// A script's object that does something when nobody holds it any more.
inline ObjectRef EndingWith(std::function<void()> work) {
  return ObjectRef(new ForeignObject(Values{}), [work](const ForeignObject* gone) {
    work();
    delete gone;
  });
}

/// One line for each member of an object's interface: how it is used, its type and its name, and
/// a method's parameters.
inline Lines InterfaceOf(const AutomationObject& object) {
  static const std::map<ValueType, std::string> kTypes = {
      {ValueType::None, "none"},         {ValueType::Boolean, "Boolean"},
      {ValueType::Byte, "Byte"},         {ValueType::Int16, "Int16"},
      {ValueType::Int32, "Int32"},       {ValueType::Double, "Double"},
      {ValueType::Text, "String"},       {ValueType::Object, "Object"},
      {ValueType::TextArray, "Strings"}, {ValueType::Any, "Variant"}};
  Lines lines;
  for (const Member& member : object.Members()->All()) {
    std::string line;
    if (member.isMethod) line += "method ";
    if (!member.isMethod && member.call != nullptr) line += "get ";
    if (member.let != nullptr) line += member.letByReference ? "let-by-ref " : "let ";
    line += kTypes.at(member.type) + " " + Utf8(member.name);
    for (const Parameter& parameter : member.parameters) {
      line += std::string(", ") + (parameter.byReference ? "by-ref " : "") +
              (parameter.optional ? "optional " : "") + kTypes.at(parameter.type) + " " +
              Utf8(parameter.name);
    }
    lines.push_back(line);
  }
  return lines;
}

}  // namespace norvo

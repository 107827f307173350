#include "automation/MemberTable.h"

#include <algorithm>

namespace norvo {
namespace {

/// Runs a member with the arguments that the caller left out filled in as missing.
Variant Invoke(const Member& member, AutomationObject& object, Arguments arguments) {
  const std::size_t wanted = member.parameters.size();
  if (arguments.size() == wanted) return member.call(object, arguments);
  if (arguments.size() > wanted) throw RunTimeError(error::kWrongArguments);
  std::vector<Variant> all(arguments.begin(), arguments.end());
  for (std::size_t i = arguments.size(); i < wanted; ++i) {
    if (!member.parameters[i].optional) throw RunTimeError(error::kWrongArguments);
    all.emplace_back(Missing{});
  }
  Variant result = member.call(object, all);
  std::move(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(arguments.size()),
            arguments.begin());
  return result;
}

}  // namespace

MemberTable::MemberTable(StringView className, std::vector<Member> members)
    : className_(className), members_(std::move(members)) {
  for (std::size_t i = 0; i < members_.size(); ++i) byName_.emplace(members_[i].name, i);
}

const Member* MemberTable::Find(StringView name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : &members_[found->second];
}

const Member& TableObject::Require(StringView name) const {
  const Member* const member = Table().Find(name);
  if (member == nullptr) throw RunTimeError(error::kNoSuchMember);
  return *member;
}

Variant TableObject::Get(StringView name, Arguments arguments) {
  const Member& member = Require(name);
  if (member.call == nullptr) throw RunTimeError(error::kNoSuchMember);
  return Invoke(member, *this, arguments);
}

void TableObject::Let(StringView name, Arguments arguments, const Variant& value) {
  const Member& member = Require(name);
  if (member.let == nullptr) throw RunTimeError(error::kNoSuchMember);
  if (!arguments.empty()) throw RunTimeError(error::kWrongArguments);
  member.let(*this, value);
}

Variant TableObject::Call(StringView name, Arguments arguments) {
  return Get(name, arguments);
}

Variant PropertyReader::operator()(AutomationObject& object) {
  const MemberTable* const table = object.Members();
  if (table == nullptr) return object.Get(name_);
  if (table != table_) {
    table_ = table;
    member_ = table->Find(name_);
    const bool readable = member_ != nullptr && member_->call != nullptr;
    if (!readable || !member_->parameters.empty()) member_ = nullptr;
  }
  return member_ == nullptr ? object.Get(name_) : member_->call(object, {});
}

}  // namespace norvo

#include "com/DispatchCall.h"

#include <array>

#include "com/BasicString.h"
#include "com/ErrorInfo.h"
#include "com/VariantConversion.h"

namespace norvo::com {
namespace {

// No member has more.
constexpr std::size_t kMostParameters = 3;

/// The arguments of a call in the order of the parameters, and where each came from.
class GivenArguments {
 public:
  GivenArguments(Apartment& apartment, const Member& member, const DISPPARAMS& given)
      : apartment_(apartment), count_(member.parameters.size()) {
    if (given.cArgs > count_) throw RunTimeError(error::kWrongArguments);
    TakeNamed(given);
    TakeOrdered(given);
    for (std::size_t i = 0; i < count_; ++i) {
      if (places_[i] != nullptr) {
        values_[i] = FromNative(apartment_, *places_[i]);
      } else if (member.parameters[i].optional) {
        values_[i] = Missing{};
      } else {
        throw RunTimeError(error::kWrongArguments);
      }
    }
    before_ = values_;
  }

  Arguments All() { return Arguments(values_.data(), count_); }

  /// Only what the member has changed: a variable of another type shall not be converted for
  /// nothing.
  void WriteBackChanged() {
    for (std::size_t i = 0; i < count_; ++i) {
      const bool isVariable = places_[i] != nullptr && (places_[i]->vt & VT_BYREF) != 0;
      if (isVariable && values_[i] != before_[i]) WriteBack(apartment_, values_[i], *places_[i]);
    }
  }

 private:
  /// The system passes named arguments first, with the positions of their parameters.
  void TakeNamed(const DISPPARAMS& given) {
    for (UINT i = 0; i < given.cNamedArgs; ++i) {
      const auto position = static_cast<std::size_t>(given.rgdispidNamedArgs[i]);
      if (position >= count_) throw RunTimeError(error::kWrongArguments);
      places_[position] = &given.rgvarg[i];
    }
  }

  /// And the others last, the last one first.
  void TakeOrdered(const DISPPARAMS& given) {
    const UINT ordered = given.cArgs - given.cNamedArgs;
    for (UINT i = 0; i < ordered; ++i) {
      if (places_[i] != nullptr) throw RunTimeError(error::kWrongArguments);
      places_[i] = &given.rgvarg[given.cArgs - 1 - i];
    }
  }

  Apartment& apartment_;
  std::size_t count_;
  std::array<const VARIANT*, kMostParameters> places_{};
  std::array<Variant, kMostParameters> values_;
  std::array<Variant, kMostParameters> before_;
};

bool IsAssignment(WORD kind) {
  return (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
}

HRESULT FindParameter(const Member& member, StringView name, DISPID& identifier) {
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    if (!EqualsIgnoreCase(member.parameters[i].name, name)) continue;
    identifier = static_cast<DISPID>(i);
    return S_OK;
  }
  identifier = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

}  // namespace

HRESULT DispatchCall::FindNames(const MemberTable& table, LPOLESTR* names, UINT count,
                                DISPID* identifiers) {
  if (names == nullptr || identifiers == nullptr || count == 0) return E_INVALIDARG;
  const Member* const member = table.Find(FromWide(names[0]));
  identifiers[0] =
      member == nullptr ? DISPID_UNKNOWN : static_cast<DISPID>(member - table.All().data()) + 1;
  HRESULT status = member == nullptr ? DISP_E_UNKNOWNNAME : S_OK;
  for (UINT i = 1; i < count; ++i) {
    identifiers[i] = DISPID_UNKNOWN;
    if (member == nullptr) continue;
    const HRESULT found = FindParameter(*member, FromWide(names[i]), identifiers[i]);
    if (FAILED(found)) status = found;
  }
  return status;
}

HRESULT DispatchCall::Invoke(DISPID identifier, WORD kind, const DISPPARAMS& parameters,
                             VARIANT* result, EXCEPINFO* information) {
  const std::vector<Member>& members = table_.All();
  if (identifier < 1 || static_cast<std::size_t>(identifier) > members.size()) {
    return DISP_E_MEMBERNOTFOUND;
  }
  const Member& member = members[static_cast<std::size_t>(identifier) - 1];
  const bool isAssignment = IsAssignment(kind);
  if (isAssignment ? member.let == nullptr : member.call == nullptr) return DISP_E_MEMBERNOTFOUND;
  try {
    Guarded([&] {
      if (isAssignment) {
        Let(member, parameters);
      } else {
        Call(member, parameters, result);
      }
    });
  } catch (const RunTimeError& failure) {
    return information != nullptr ? Report(failure, *information) : StatusOf(failure);
  }
  return S_OK;
}

void DispatchCall::Let(const Member& member, const DISPPARAMS& parameters) {
  if (parameters.cArgs != 1) throw RunTimeError(error::kWrongArguments);
  member.let(object_, FromNative(apartment_, parameters.rgvarg[0]));
}

void DispatchCall::Call(const Member& member, const DISPPARAMS& parameters, VARIANT* result) {
  GivenArguments arguments(apartment_, member, parameters);
  const Variant value = member.call(object_, arguments.All());
  arguments.WriteBackChanged();
  if (result != nullptr) ToNative(apartment_, value, result);
}

}  // namespace norvo::com

#pragma once

#include "com/Apartment.h"
#include "com/LiveObjects.h"

namespace norvo::com {

/// Stands in for an object of the host's or of a script: passes all calls on.
class ForeignObject final : public AutomationObject {
 public:
  ForeignObject(std::shared_ptr<Apartment> apartment, ComPointer<IDispatch> face);
  ~ForeignObject() override;

  StringView ClassName() const override { return className_; }
  Variant Get(StringView name, Arguments arguments) override;
  void Let(StringView name, Arguments arguments, const Variant& value) override;
  Variant Call(StringView name, Arguments arguments) override;

  /// The object itself.
  const ComPointer<IDispatch>& Face() const { return face_; }

 private:
  DISPID IdentifierOf(StringView name);
  /// Raises only what the object itself has raised.
  HRESULT Invoke(DISPID identifier, WORD kind, Arguments arguments, Variant& value);
  /// Tries the kinds of call one after the other.
  Variant Ask(StringView name, std::span<const WORD> kinds, Arguments arguments);

  LiveObject live_;
  std::shared_ptr<Apartment> apartment_;
  ComPointer<IDispatch> face_;
  String className_;  // as its own type information tells; empty without
};

}  // namespace norvo::com

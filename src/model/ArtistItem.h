#pragma once

#include <cstdint>
#include <memory>

#include "automation/MemberTable.h"

namespace norvo {

/// A node of an `ArtistList`: a key, a value, and references to its neighbours. The plain fields
/// (`mValue` and so on) and the typed properties share their storage.
class ArtistItem final : public TableObject {
 public:
  /// A counted reference to a node; null where there is none.
  using Ref = std::shared_ptr<ArtistItem>;

  /// A node without a key, a value and neighbours.
  ArtistItem() = default;
  /// Lets go of the nodes behind its links one after the other, however long the chain is.
  ~ArtistItem() override;

  /// @{
  /// The plain fields: any value, as it was stored.
  // What was stored before goes when the new value is in place: a script's object may ask for it
  // while it ends.
  Variant RawValue() { return value_; }
  void SetRawValue(Variant value) { value_.swap(value); }
  Variant RawKeyID() { return keyId_; }
  void SetRawKeyID(Variant value) { keyId_.swap(value); }
  /// @}

  /// @{
  /// The typed properties. Error 13 or 6 for a stored value that does not convert.
  std::int32_t Value() { return ToInt32(value_); }
  void SetValue(std::int32_t value) { SetRawValue(value); }
  String KeyID() { return ToText(keyId_); }
  void SetKeyID(const String& value) { SetRawKeyID(value); }
  /// @}

  /// @{
  /// The neighbours; null at the ends.
  Ref NextItem() { return next_; }
  void SetNextItem(const Ref& item) { next_ = item; }
  Ref PreviousItem() { return previous_; }
  void SetPreviousItem(const Ref& item) { previous_ = item; }
  /// @}

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  Variant value_;
  Variant keyId_;
  Ref next_;
  Ref previous_;
};

}  // namespace norvo

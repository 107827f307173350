#pragma once

#include "automation/Event.h"
#include "model/EntryFields.h"

namespace norvo {

/// One item of a playlist, of no particular format.
class Entry final : public EntryFields {
 public:
  using EntryFields::EntryFields;

  /// Raised when memory runs out; no operation of the class does so itself.
  Event& OutOfMemory() { return outOfMemory_; }

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  Event outOfMemory_;
};

}  // namespace norvo

#pragma once

#include <vector>

#include "model/EntryFields.h"

namespace norvo {

/// What the three format entries share: the field set of an entry, and the mark that extended
/// information was found.
class FormatEntry : public EntryFields {
 public:
  using EntryFields::EntryFields;

  /// @{
  /// Whether the playlist told more of the item than its address.
  bool HasExtendedInfo() { return hasExtendedInfo_; }
  void SetHasExtendedInfo(bool value) { hasExtendedInfo_ = value; }
  /// @}

 protected:
  /// The public members of a format entry: those that all three classes have, and then its own.
  static MemberTable TableWith(StringView className, std::vector<Member> own = {});

 private:
  bool hasExtendedInfo_ = false;
};

/// An item of an M3U playlist.
class M3UEntry final : public FormatEntry {
 public:
  using FormatEntry::FormatEntry;
  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }
};

/// An item of a PLS playlist.
class PlsEntry final : public FormatEntry {
 public:
  using FormatEntry::FormatEntry;
  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }
};

}  // namespace norvo

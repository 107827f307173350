#pragma once

#include "model/FormatEntry.h"

namespace norvo {

/// An item of an ASX playlist, with the fields that only such an item carries.
class AsxEntry final : public FormatEntry {
 public:
  using FormatEntry::FormatEntry;

  /// See the plain name.
  void SetSongName(StringView value) override;

  /// @{
  /// Text of the element of that name; stored as given.
  StringView Author() { return asx_.At(kAuthor); }
  void SetAuthor(StringView value) { asx_.Set(kAuthor, value); }
  /// @}
  /// The plain artist name when it is at least as long as the one set here, else the latter.
  StringView Artist() { return LongerOf(ArtistName(), asx_.At(kArtist)); }
  /// Also sets the plain artist name.
  void SetArtist(StringView value);
  /// @{
  /// Album: the same two rules.
  StringView Album() { return LongerOf(AlbumName(), asx_.At(kAlbum)); }
  void SetAlbum(StringView value);
  /// @}
  /// @{
  /// Texts of the elements of these names; stored as given.
  StringView Copyright() { return asx_.At(kCopyright); }
  void SetCopyright(StringView value) { asx_.Set(kCopyright, value); }
  StringView Href() { return asx_.At(kHref); }
  void SetHref(StringView value) { asx_.Set(kHref, value); }
  StringView AsxSongName() { return asx_.At(kAsxSongName); }
  void SetAsxSongName(StringView value) { asx_.Set(kAsxSongName, value); }
  StringView Title() { return asx_.At(kTitle); }
  void SetTitle(StringView value) { asx_.Set(kTitle, value); }
  StringView Abstract() { return asx_.At(kAbstract); }
  void SetAbstract(StringView value) { asx_.Set(kAbstract, value); }
  /// @}

  /// @{
  /// Values of any type; what does not convert to the stored type raises error 13 or 6.
  Variant BitRate() { return bitRate_; }
  void SetBitRate(const Variant& value) { bitRate_ = ToInt32(value); }
  Variant DigitallySecure() { return digitallySecure_; }
  // An object that was stored before goes when the new value is in place.
  void SetDigitallySecure(Variant value) { digitallySecure_.swap(value); }
  Variant MediaAttribute() { return mediaAttribute_; }
  void SetMediaAttribute(const Variant& value) { mediaAttribute_ = ToInt16(value); }
  Variant MediaType() { return String(asx_.At(kMediaType)); }
  void SetMediaType(const Variant& value) { asx_.Set(kMediaType, ToText(value)); }
  Variant PlaylistAttribute() { return String(asx_.At(kPlaylistAttribute)); }
  void SetPlaylistAttribute(const Variant& value) { asx_.Set(kPlaylistAttribute, ToText(value)); }
  Variant PlayCount() { return playCount_; }
  void SetPlayCount(const Variant& value) { playCount_ = ToInt32(value); }
  /// @}

  /// Also when a value of another type may have such units as a text.
  bool MayHaveControls() const override {
    const bool isPlain = std::holds_alternative<std::monostate>(digitallySecure_);
    return FormatEntry::MayHaveControls() || asx_.MayHaveControls() || !isPlain;
  }

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  /// @cond
  enum AsxField : std::uint8_t {
    kAuthor,
    kArtist,
    kAlbum,
    kCopyright,
    kHref,
    kAsxSongName,
    kTitle,
    kMediaType,
    kPlaylistAttribute,
    kAbstract,
    kAsxFieldCount
  };
  /// @endcond

  static StringView LongerOf(StringView plain, StringView own) {
    return plain.size() >= own.size() ? plain : own;
  }

  PackedTexts<kAsxFieldCount> asx_;
  Variant digitallySecure_;
  std::int32_t bitRate_ = 0;
  std::int32_t playCount_ = 0;
  std::int16_t mediaAttribute_ = 0;
};

}  // namespace norvo

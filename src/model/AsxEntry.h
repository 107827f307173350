#pragma once

#include "model/FormatEntry.h"

namespace norvo {

/// An item of an ASX playlist, with the fields that only such an item carries.
class AsxEntry final : public FormatEntry {
 public:
  using FormatEntry::FormatEntry;

  /// See the plain name.
  void SetSongName(const String& value) override;

  /// @{
  /// Text of the element of that name; stored as given.
  String Author() { return author_; }
  void SetAuthor(const String& value) { author_ = value; }
  /// @}
  /// The plain artist name when it is at least as long as the one set here, else the latter.
  String Artist();
  /// Also sets the plain artist name.
  void SetArtist(const String& value);
  /// @{
  /// Album: the same two rules.
  String Album();
  void SetAlbum(const String& value);
  /// @}
  /// @{
  /// Texts of the elements of these names; stored as given.
  String Copyright() { return copyright_; }
  void SetCopyright(const String& value) { copyright_ = value; }
  String Href() { return href_; }
  void SetHref(const String& value) { href_ = value; }
  String AsxSongName() { return asxSongName_; }
  void SetAsxSongName(const String& value) { asxSongName_ = value; }
  String Title() { return title_; }
  void SetTitle(const String& value) { title_ = value; }
  String Abstract() { return abstract_; }
  void SetAbstract(const String& value) { abstract_ = value; }
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
  Variant MediaType() { return mediaType_; }
  void SetMediaType(const Variant& value) { mediaType_ = ToText(value); }
  Variant PlaylistAttribute() { return playlistAttribute_; }
  void SetPlaylistAttribute(const Variant& value) { playlistAttribute_ = ToText(value); }
  Variant PlayCount() { return playCount_; }
  void SetPlayCount(const Variant& value) { playCount_ = ToInt32(value); }
  /// @}

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  String author_;
  String artist_;
  String album_;
  String copyright_;
  String href_;
  String asxSongName_;
  String title_;
  std::int32_t bitRate_ = 0;
  Variant digitallySecure_;
  std::int16_t mediaAttribute_ = 0;
  String mediaType_;
  String playlistAttribute_;
  std::int32_t playCount_ = 0;
  String abstract_;
};

}  // namespace norvo

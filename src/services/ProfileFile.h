#pragma once

#include <cstdint>
#include <vector>

#include "services/Component.h"
#include "services/IniDocument.h"
#include "services/TextStream.h"
#include "text/Text.h"

namespace norvo {

/// The settings-file service: one INI-style file, read once, kept in memory, and written whole on
/// `Close` when a value was set. A bare file name (no separator, no drive) names a file of the
/// product's data area. Written in the 8-bit code page when every character fits, otherwise as
/// UTF-16 with a byte order mark; read by the mark.
class ProfileFile {
 public:
  explicit ProfileFile(Component& component) : component_(component) {}
  /// Closes; an error is lost, so a caller that cares closes first.
  ~ProfileFile();
  ProfileFile(const ProfileFile&) = delete;
  ProfileFile& operator=(const ProfileFile&) = delete;

  /// Binds to a file; a missing one counts as empty. False when the file cannot be read, has more
  /// bytes than `most` or is refused by `DecodeSettings`, or when a bare name has no data area to
  /// stand in; every read then finds nothing.
  bool OpenFile(StringView path, std::uint64_t most = kLargestText);
  /// Binds to a file without reading it: what is written replaces it whole.
  bool CreateNew(StringView path);
  /// Binds to a text that is no file: it can be read, and what is set in it is never written.
  void Hold(IniDocument document);
  /// The file was there when it was opened.
  bool Exists() const { return exists_; }

  /// Makes a section current; true when the file has it. Writing creates it.
  bool SelectSection(StringView name);
  /// 0 when the key of the current section was found; otherwise `value` stays as it was.
  std::int32_t ReadValue(StringView key, String& value) const;
  /// Keys of the current section, in their order. The views hold until the next write.
  std::vector<StringView> Keys() const;
  /// Calls `visit` with each key of the current section and its value; see `IniDocument`.
  template <class Visit>
  void ForEachValue(Visit&& visit) const {
    if (open_ && position_ != IniDocument::kNone) document_.ForEachValue(position_, visit);
  }
  /// Error 91 when no file is open or no section was selected.
  void WriteValue(StringView key, StringView value);
  /// Replaces the file by this text at once, and lets go of it; raises when that fails.
  void WriteWhole(StringView text);
  /// Writes what was set; raises when that fails. The object can be opened again afterwards.
  void Close();
  /// Lets go of the file without writing what was set.
  void Abandon();

 private:
  bool Bind(StringView path);

  Component& component_;
  IniDocument document_;
  String path_;
  String section_;
  std::size_t position_ = IniDocument::kNone;  // of the current section in the document
  bool open_ = false;
  bool exists_ = false;
  bool selected_ = false;
  bool changed_ = false;
  bool held_ = false;  // bound to no file
};

/// Bytes of a settings file with this text, in the encoding that fits it; see `ProfileFile`.
std::string EncodeSettings(StringView text, const CodePage& page);

/// The text of a settings file of these bytes, which are let go of: it alone can take twice as
/// much. Error 7 when there is too much of it; see `CheckSettings`.
String DecodeSettings(std::string bytes, const CodePage& page);

/// The data area of a group root: the root + "KVs\", with exactly one backslash between; empty for
/// an empty root.
String DataArea(StringView groupRoot);

}  // namespace norvo

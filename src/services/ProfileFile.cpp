#include "services/ProfileFile.h"

#include <exception>
#include <utility>

#include "automation/RunTimeError.h"
#include "services/DataCop.h"
#include "services/NVServices.h"
#include "services/SettingsLines.h"
#include "services/Utility.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

bool IsBareName(StringView path) {
  return path.find_first_of(u"\\/") == StringView::npos && !HasDrive(path);
}

}  // namespace

String DataArea(StringView groupRoot) {
  return groupRoot.empty() ? String() : Utility::AddBackslash(groupRoot) + u"KVs\\";
}

String DecodeSettings(std::string bytes, const CodePage& page) {
  String text = DecodeFile(bytes, page);
  CheckSettings(text);
  return text;
}

std::string EncodeSettings(StringView text, const CodePage& page) {
  if (std::optional<std::string> bytes = page.EncodeFitting(text)) return std::move(*bytes);
  return EncodeFile(text, FileEncoding::Utf16LittleEndian, page);
}

ProfileFile::~ProfileFile() {
  try {
    Close();
  } catch (const std::exception&) {
    // The last holder has let go; nobody is left to be told.
  }
}

bool ProfileFile::Bind(StringView path) {
  Close();
  document_ = IniDocument();
  exists_ = selected_ = false;
  position_ = IniDocument::kNone;
  path_ = path;
  if (IsBareName(path)) {
    String root;
    NVServices::GetSubGroupRoot(component_, DataCop::kGroup, root);
    if (root.empty() || path.empty()) return open_ = false;
    path_ = DataArea(root) + String(path);
  }
  return open_ = true;
}

bool ProfileFile::OpenFile(StringView path, std::uint64_t most) {
  if (!Bind(path)) return false;
  try {
    std::optional<std::string> bytes = component_.Machine().Settings().Read(path_);
    exists_ = bytes.has_value();
    if (bytes && bytes->size() > most) throw TooLarge(most);
    if (bytes) {
      document_ = IniDocument(DecodeSettings(*std::move(bytes), component_.Machine().AnsiPage()));
    }
  } catch (const RunTimeError&) {
    return open_ = false;
  }
  return true;
}

bool ProfileFile::CreateNew(StringView path) {
  return Bind(path);
}

void ProfileFile::Hold(IniDocument document) {
  Close();
  document_ = std::move(document);
  exists_ = open_ = held_ = true;
  selected_ = false;
  position_ = IniDocument::kNone;
}

bool ProfileFile::SelectSection(StringView name) {
  section_ = name;
  selected_ = true;
  position_ = document_.FindSection(name);
  return open_ && position_ != IniDocument::kNone;
}

std::int32_t ProfileFile::ReadValue(StringView key, String& value) const {
  constexpr std::int32_t kFound = 0;
  constexpr std::int32_t kNotFound = 1;
  if (!open_ || position_ == IniDocument::kNone) return kNotFound;
  const std::optional<StringView> found = document_.Value(position_, key);
  if (!found) return kNotFound;
  value = *found;
  return kFound;
}

std::vector<StringView> ProfileFile::Keys() const {
  if (!open_ || position_ == IniDocument::kNone) return {};
  return document_.Keys(position_);
}

void ProfileFile::WriteValue(StringView key, StringView value) {
  if (!open_ || !selected_) throw RunTimeError(error::kObjectNotSet);
  if (position_ == IniDocument::kNone) position_ = document_.FindOrAddSection(section_);
  document_.SetValue(position_, key, value);
  changed_ = true;
}

void ProfileFile::WriteWhole(StringView text) {
  if (!open_) throw RunTimeError(error::kObjectNotSet);
  const bool isFile = !held_;
  Abandon();
  if (!isFile) return;
  component_.Machine().Settings().Write(path_,
                                        EncodeSettings(text, component_.Machine().AnsiPage()));
}

void ProfileFile::Close() {
  if (open_ && changed_) WriteWhole(document_.ToText());
  Abandon();
}

void ProfileFile::Abandon() {
  open_ = changed_ = held_ = false;
}

}  // namespace norvo

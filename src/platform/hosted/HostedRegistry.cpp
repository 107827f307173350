#include "platform/hosted/HostedRegistry.h"

#include <filesystem>

#include "automation/RunTimeError.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FileBytes.h"
#include "platform/files/RealFolder.h"
#include "platform/files/ReplaceWhole.h"
#include "text/CodePage.h"
#include "text/Encoding.h"
#include "text/Utf16.h"

namespace norvo {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kOldMark = "REGEDIT4";
constexpr StringView kMachineClasses = u"SOFTWARE\\Classes\\";

// The text is held in memory as a whole; a full Windows registry takes a fraction of this.
constexpr std::size_t kMostOfRegistry = std::size_t{512} * 1024 * 1024;

/// Where a key of the classes root stands when the text holds the machine's part only.
String InMachineClasses(StringView key) {
  return String(kMachineClasses).append(key);
}

/// The file itself, if its name is a link to one; in any case by a folder without links.
std::string WithoutLinks(const std::filesystem::path& file) {
  const FileResult<std::string> real = RealPath(ToDiskPath(file));
  const FileResult<FileRecord> found = real ? LookUpSystemPath(*real) : real.Failure();
  if (found && found->kind == FileRecord::Kind::File) return *real;
  const std::string folder = RealAsFarAsThere(file.parent_path());
  return ToDiskPath(ToSystemPath(folder) / file.filename());
}

/// Writes a file whole, and its folder with it. Its path has no links; what has become one since is
/// not followed.
FileFailure WriteWhole(const std::string& file, std::string_view bytes) {
  const std::string_view disk = RootOf(file);
  const FileResult<SystemFile> root = OpenRoot(std::string(disk));
  if (!root) return root.Failure();
  const std::string path = file.substr(disk.size());
  // Mostly it is there; what cannot be made cannot be written into either.
  MakeFolder(*root, std::string(ParentOf(path)));
  return ReplaceWhole(*root, path, bytes);
}

/// Nothing for a file that cannot be asked about.
std::optional<FileRecord> RecordOf(const FileResult<FileRecord>& found) {
  return found ? std::optional(*found) : std::nullopt;
}

bool IsSame(const std::optional<FileRecord>& left, const std::optional<FileRecord>& right) {
  if (!left || !right) return left.has_value() == right.has_value();
  return left->size == right->size && left->modified == right->modified &&
         left->changed == right->changed;
}

bool FitsPage(const RegistryText& text) {
  bool fits = true;
  text.ForEachPart([&fits](StringView part) { fits = fits && Windows1252().Fits(part); });
  return fits;
}

}  // namespace

HostedRegistry::HostedRegistry(const std::filesystem::path& file,
                               std::function<void(StringView)> warn)
    : file_(WithoutLinks(file)), warn_(std::move(warn)) {}

String HostedRegistry::Decode(std::string_view bytes, Encoding& encoding) {
  const FileEncoding found = DetectEncoding(bytes);
  encoding.marked = found != FileEncoding::CodePage;
  if (found == FileEncoding::Utf16LittleEndian || found == FileEncoding::Utf16BigEndian) {
    const bool big = found == FileEncoding::Utf16BigEndian;
    encoding.kind = big ? Encoding::Kind::Utf16Big : Encoding::Kind::Utf16Little;
    return DecodeUtf16(bytes.substr(2), big);
  }
  if (encoding.marked) bytes.remove_prefix(kUtf8Mark.size());
  // The old form is 8-bit text by its definition, even where it could be taken for UTF-8.
  const bool old = !encoding.marked && bytes.starts_with(kOldMark);
  std::optional<String> text = old ? std::nullopt : FromUtf8(bytes);
  encoding.kind = text ? Encoding::Kind::Utf8 : Encoding::Kind::CodePage;
  return text ? std::move(*text) : Windows1252().Decode(bytes);
}

std::string HostedRegistry::Encode(const RegistryText& text, const Encoding& encoding) {
  constexpr std::string_view kBigMark = "\xFE\xFF";
  constexpr std::string_view kLittleMark = "\xFF\xFE";
  const bool isBig = encoding.kind == Encoding::Kind::Utf16Big;
  const bool isWide = isBig || encoding.kind == Encoding::Kind::Utf16Little;
  std::size_t units = 0;
  text.ForEachPart([&units](StringView part) { units += part.size(); });
  std::string bytes;
  bytes.reserve(kUtf8Mark.size() + (isWide ? 2 * units : units));
  if (encoding.marked || isWide) bytes = isBig ? kBigMark : isWide ? kLittleMark : kUtf8Mark;
  text.ForEachPart([&](StringView part) {
    if (isWide) {
      AppendUtf16(bytes, part, isBig);
    } else if (encoding.kind == Encoding::Kind::Utf8) {
      AppendUtf8(bytes, part);
    } else {
      bytes += Windows1252().Encode(part);
    }
  });
  return bytes;
}

bool HostedRegistry::ReadBytes(std::string& bytes) {
  const FileResult<SystemFile> file = OpenSystemPath(file_);
  record_ = file ? RecordOf(LookUp(*file)) : std::nullopt;
  if (!file) return file.Failure().kind == FileFailure::Kind::NotFound;
  if (!record_) return false;
  FileResult<std::string> read = ReadWhole(*file, kMostOfRegistry);
  if (read.Failure().kind == FileFailure::Kind::TooLong) {
    throw RunTimeError(error::kOutOfMemory,
                       FromUtf8Lossy(file_) + u" is larger than any registry (512 MB)");
  }
  if (!read) return false;
  bytes = std::move(*read);
  return true;
}

void HostedRegistry::Load() {
  text_.reset();  // what was read before is not to be written when the reading raises
  std::string bytes;
  usable_ = ReadBytes(bytes);
  encoding_ = {};
  String text = bytes.empty() ? String() : Decode(bytes, encoding_);
  bytes = std::string();  // beside the text it would take half as much again
  text_ = std::make_unique<RegistryText>(std::move(text));
  if (usable_ && text_->IsValid()) return;
  warn_(String(u"The registry file ") + FromUtf8Lossy(file_) +
        (usable_ ? u" is not in the registry editor's form; it is left alone"
                 : u" cannot be read; it is left alone"));
  usable_ = false;
}

RegistryText& HostedRegistry::Loaded() {
  if (!text_) Load();
  return *text_;
}

/// Somebody else may have changed the file since it was read; that must not be lost.
void HostedRegistry::LoadAnewIfChanged() {
  if (!text_ || !IsSame(RecordOf(LookUpSystemPath(file_)), record_)) Load();
}

bool HostedRegistry::Save() {
  if (encoding_.kind == Encoding::Kind::CodePage && !FitsPage(*text_)) {
    encoding_ = {};  // no character is given up for the sake of the old encoding
    text_->UpgradeHeader();
  }
  const bool saved = !WriteWhole(file_, Encode(*text_, encoding_));
  record_ = RecordOf(LookUpSystemPath(file_));
  if (!saved) text_.reset();  // what is in the file holds
  return saved;
}

bool HostedRegistry::KeyExists(Hive hive, StringView key) {
  const RegistryText& text = Loaded();
  return text.KeyExists(hive, key) ||
         (hive == Hive::ClassesRoot && text.KeyExists(Hive::LocalMachine, InMachineClasses(key)));
}

std::optional<RegistryValue> HostedRegistry::Read(Hive hive, StringView key, StringView name) {
  const RegistryText& text = Loaded();
  std::optional<RegistryValue> value = text.Read(hive, key, name);
  if (!value && hive == Hive::ClassesRoot) {
    value = text.Read(Hive::LocalMachine, InMachineClasses(key), name);
  }
  return value;
}

bool HostedRegistry::Write(Hive hive, StringView key, StringView name, const RegistryValue& value) {
  LoadAnewIfChanged();
  if (!usable_) return false;
  if (text_->KeyExists(hive, key)) return text_->Write(hive, key, name, value) && Save();
  const String inClasses = InMachineClasses(key);
  return hive == Hive::ClassesRoot && text_->KeyExists(Hive::LocalMachine, inClasses) &&
         text_->Write(Hive::LocalMachine, inClasses, name, value) && Save();
}

bool HostedRegistry::CreateKey(Hive hive, StringView key) {
  LoadAnewIfChanged();
  if (KeyExists(hive, key)) return true;
  return usable_ && text_->CreateKey(hive, key) && Save();
}

}  // namespace norvo

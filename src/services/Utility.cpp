#include "services/Utility.h"

#include <algorithm>
#include <array>
#include <bitset>

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "services/Logging.h"
#include "text/Wildcard.h"

namespace norvo::Utility {
namespace {

constexpr StringView kDeletedCharacters = u"(){}[]=+|*<>#@!$%~^`:;?.,'";
constexpr std::array<bool, 128> kDeleted = [] {
  std::array<bool, 128> deleted{};
  for (const char16_t unit : kDeletedCharacters) deleted[unit] = true;
  return deleted;
}();
constexpr StringView kAppPaths = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

std::size_t FindUnit(StringView text, char16_t unit, Compare compare) {
  if (compare == Compare::Binary) return text.find(unit);
  return FindIgnoreCase(text, StringView(&unit, 1));
}

/// Tells at once of most characters that they stand in no list of sought ones, and for a list of
/// ASCII characters tells it of all.
class AsciiCandidates {
 public:
  explicit AsciiCandidates(StringView sought) {
    for (const char16_t unit : sought) {
      const char16_t upper = ToUpper(unit);
      if (upper < 128) sought_.set(upper);
    }
  }
  bool Excludes(char16_t unit) const { return unit < 128 && !sought_.test(ToUpper(unit)); }

 private:
  std::bitset<128> sought_;
};

bool IsOnDrive(StringView path) {
  return Matches(path, u"?:\\*", Compare::Text);
}

}  // namespace

String AddBackslash(StringView path) {
  String result(path);
  if (result.empty() || result.back() != u'\\') result.push_back(u'\\');
  return result;
}

StringView GetExtension(StringView fileName) {
  const std::size_t point = fileName.rfind(u'.');
  return point == StringView::npos ? StringView() : fileName.substr(point + 1);
}

String ReplaceChars(StringView text, StringView from, StringView to, Compare compare) {
  String padded(to);
  if (!padded.empty()) padded.resize(from.size(), to.back());
  const AsciiCandidates candidates(from);
  String result;
  result.reserve(text.size());
  for (const char16_t unit : text) {
    const std::size_t at =
        candidates.Excludes(unit) ? StringView::npos : FindUnit(from, unit, compare);
    if (at == StringView::npos) {
      result.push_back(unit);
    } else if (!padded.empty()) {
      result.push_back(padded[at]);
    }
  }
  return result;
}

void Clean(String& text) {
  const auto isDeleted = [](char16_t unit) { return unit < 128 && kDeleted[unit]; };
  std::replace(text.begin(), text.end(), u'_', u' ');
  text.erase(std::remove_if(text.begin(), text.end(), isDeleted), text.end());
  // A third step would turn "%20" into the control character 14 (hexadecimal), but every "%" has
  // just been deleted: it never finds anything, as intended.
}

String CleanString(String& text) {
  Clean(text);
  return text;
}

String GetAppPath(Component& component, StringView programFile) {
  return AnswerOr(String(), [&] {
    const String folder = ReadTextIn(component.Machine().Registry(), Hive::LocalMachine,
                                     String(kAppPaths) + String(programFile), u"Path");
    return IsOnDrive(folder) ? AddBackslash(folder) : String();
  });
}

String GetShellOpenFolder(Component& component, StringView fileClass, StringView programFile) {
  return AnswerOr(String(), [&] {
    const String command = ReadTextIn(component.Machine().Registry(), Hive::ClassesRoot,
                                      String(fileClass) + u"\\shell\\open\\command", {});
    const std::size_t program = FindIgnoreCase(command, programFile);
    // A command in quotes does not begin with a drive and is therefore not taken.
    if (program == StringView::npos || !IsOnDrive(command)) return String();
    return AddBackslash(StringView(command).substr(0, program));
  });
}

void DeleteFileForced(Component& component, StringView path) {
  Attempt([&] { component.Files().RemoveFile(path, true); });
}

double GetFileSize(Component& component, StringView path) {
  if (path.empty() || path.find(u'\0') != StringView::npos) {
    WriteLog(component,
             u"GetFileSize was passed an empty string or a string with bad data, unable to post "
             u"size!");
    return 0;
  }
  const auto size = [&] {
    const std::optional<FileFacts> facts = component.Files().FactsOf(path);
    if (!facts) throw RunTimeError(error::kFileNotFound);
    return facts->size;
  };
  return AnswerOrElse(size, [&](const RunTimeError& failure) {
    WriteLog(component, u"GetFileSize threw an exception: " + failure.Description() +
                            u", For file: " + String(path));
    return 0;
  });
}

std::int32_t GetMachineRole(Component& component) {
  return AnswerOr(role::kNeither, [&] {
    std::int32_t mode = role::kNeither;
    RegistryKey key(component.Machine().Registry());
    if (key.Open(component.Machine().Product().BaseKey() + u"\\KVS")) key.Read(u"mode", mode);
    return mode;
  });
}

}  // namespace norvo::Utility

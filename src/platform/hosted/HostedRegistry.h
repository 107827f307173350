#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/files/FileRecord.h"
#include "platform/hosted/RegistryText.h"
#include "services/Registry.h"

namespace norvo {

/// The registry in a text file. The file is read at the first question; a missing one is an empty
/// registry. Every change that succeeds is in the file when the call returns, which is written
/// whole and atomically in the encoding it had (UTF-16 when it is new); its folder is made
/// when it is missing. A file that cannot be read, or is no registry text, answers nothing and is
/// never written; one that is larger than any registry raises error 7.
class HostedRegistry final : public Registry {
 public:
  HostedRegistry(const std::filesystem::path& file, std::function<void(StringView)> warn);

  bool KeyExists(Hive hive, StringView key) override;
  std::optional<RegistryValue> Read(Hive hive, StringView key, StringView name) override;
  bool Write(Hive hive, StringView key, StringView name, const RegistryValue& value) override;
  bool CreateKey(Hive hive, StringView key) override;

 private:
  /// What the file's bytes are made of.
  struct Encoding {
    enum class Kind { Utf8, CodePage, Utf16Little, Utf16Big };
    Kind kind = Kind::Utf16Little;
    bool marked = true;  // starts with a byte order mark
  };

  static String Decode(std::string_view bytes, Encoding& encoding);
  static std::string Encode(const RegistryText& text, const Encoding& encoding);

  RegistryText& Loaded();
  void Load();
  bool ReadBytes(std::string& bytes);
  void LoadAnewIfChanged();
  bool Save();

  std::string file_;  // the system's path, as files/DiskPath.h has it
  std::function<void(StringView)> warn_;
  std::unique_ptr<RegistryText> text_;  // null until the first question
  Encoding encoding_;
  std::optional<FileRecord> record_;  // of the file when it was read or written
  bool usable_ = true;
};

}  // namespace norvo

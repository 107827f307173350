#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "services/Registry.h"
#include "text/Text.h"

namespace norvo {

/// The text form in which the Windows registry editor exports and imports a registry. What is not
/// changed through this class (comments, deletions, values of other types, lines that nobody
/// knows) comes out as it went in. Names are matched without regard to case; of two equal values
/// the last holds, as an import would leave it. A section whose key lies deeper, or has a longer
/// name, than a registry can hold is no key, but comes out as well.
class RegistryText {
 public:
  /// An empty registry.
  RegistryText();
  explicit RegistryText(String text);
  RegistryText(const RegistryText&) = delete;
  RegistryText& operator=(const RegistryText&) = delete;

  /// False when the first line is not that of a registry text; it then holds no keys.
  bool IsValid() const { return valid_; }

  /// True for a key that stands in the text, or a key below it, and for a hive itself.
  bool KeyExists(Hive hive, StringView key) const;
  /// Nothing for a value that is missing or of another type than text, 32-bit integer or double.
  std::optional<RegistryValue> Read(Hive hive, StringView key, StringView name) const;

  /// False for a name that the form cannot hold. The key is added when it is missing.
  bool Write(Hive hive, StringView key, StringView name, const RegistryValue& value);
  bool CreateKey(Hive hive, StringView key);

  String Text() const;
  /// Makes the first line the one of the current form, which every encoding can carry.
  void UpgradeHeader();

 private:
  /// From one bracketed line to the next; the first section holds what stands before all keys.
  struct Section {
    StringView original;  // in original_
    std::optional<String> changed;
    StringView Text() const { return changed ? StringView(*changed) : original; }
  };
  struct Location {
    std::size_t section = 0;
    std::size_t start = 0;  // of the value's line within the section
    std::size_t end = 0;    // behind its line end
    std::size_t data = 0;   // behind the "="
  };
  using Values = std::unordered_map<String, Location, CaselessHash, CaselessEqual>;
  struct Key;
  using Keys = std::unordered_map<String, std::unique_ptr<Key>, CaselessHash, CaselessEqual>;
  struct Key {
    Keys below;  // by the last name
    std::vector<std::size_t> sections;
    mutable std::optional<Values> values;  // found when the key is first read
  };

  void Parse();
  void AddSection(StringView header, StringView text);
  Key& AddKey(Hive hive, StringView key);
  const Key* FindKey(Hive hive, StringView key) const;
  const Values& ValuesOf(const Key& key) const;
  std::size_t SectionForNewValue(Hive hive, StringView keyName, Key& key);

  String original_;
  StringView lineEnd_ = u"\r\n";
  std::vector<Section> sections_;
  Key hives_[3];  // by hive
  bool valid_ = true;
};

}  // namespace norvo

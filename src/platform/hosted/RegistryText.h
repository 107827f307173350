#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/hosted/RegistryKeys.h"
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

  /// Calls `visit` with the text's parts, one behind the other: a registry of all that a machine
  /// has is not to be in memory twice. No part ends within a character.
  template <class Visit>
  void ForEachPart(Visit&& visit) const {
    for (const Section& section : sections_) visit(section.text);
  }
  /// Makes the first line the one of the current form, which every encoding can carry.
  void UpgradeHeader();

 private:
  /// From one bracketed line to the next; the first section holds what stands before all keys.
  struct Section {
    StringView text;         // in original_ or changed_
    std::uint32_t next = 0;  // the next section of the same key; 0 for the last
  };
  /// The sections of one key, by their numbers; 0, which is no key's, for none.
  struct SectionRange {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
  };
  struct Location {
    std::size_t section = 0;
    std::size_t start = 0;  // of the value's line within the section
    std::size_t end = 0;    // behind its line end
    std::size_t data = 0;   // behind the "="
  };
  using Values = std::unordered_map<String, Location, CaselessHash, CaselessEqual>;

  void Parse();
  void AddSection(StringView header, StringView text);
  void AppendTo(std::size_t key, std::size_t section);
  void Change(std::size_t section, String text);
  SectionRange SectionsOf(std::size_t key) const;
  const Values& ValuesOf(std::size_t key) const;
  std::size_t SectionForNewValue(Hive hive, StringView path, std::size_t key);

  String original_;
  StringView lineEnd_ = u"\r\n";
  std::vector<Section> sections_;
  std::unordered_map<std::size_t, String> changed_;  // texts of sections
  RegistryKeys keys_;
  std::vector<SectionRange> ranges_;  // by key; those behind the end have none
  mutable std::unordered_map<std::size_t, Values> values_;  // of the keys that were read
  bool valid_ = true;
};

}  // namespace norvo

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "move/SectionPool.h"
#include "services/IniDocument.h"

namespace norvo {

/// A generic file on its way: what an `IniDocument` is, with the same rules and the same text, for
/// all the files of a move at once. Its lines are kept in the move's pool, which has equal sections
/// once; most playlists are made of the same songs.
class GenericDraft {
 public:
  static constexpr std::size_t kNone = IniDocument::kNone;

  GenericDraft() = default;
  /// The pool must outlive this.
  GenericDraft(StringView text, SectionPool& pool);

  /// Position of a section, kNone when there is none.
  std::size_t FindSection(StringView name) const;
  /// The same of an entry's section, by its 1-based number.
  std::size_t FindEntry(std::size_t number) const;
  std::size_t FindOrAddSection(StringView name);
  std::size_t FindOrAddEntry(std::size_t number);

  /// The number of entries' sections from the first on, in a row.
  std::size_t CountEntries() const;

  /// Stands for all of a section's lines; equal sections have the same.
  SectionPool::Id ContentOf(std::size_t section) const { return sections_[section].lines; }
  /// Nothing when the section lacks the key. Holds as long as the pool.
  std::optional<StringView> Value(std::size_t section, StringView key) const;
  /// Calls `visit` with the key and the value of each line that has one, in their order.
  template <class Visit>
  void ForEachValue(std::size_t section, Visit&& visit) const {
    const TextPool& texts = pool_->Texts();
    for (const SectionPool::Line& line : Lines(section)) {
      if (line.key != 0) visit(texts.Text(line.key), texts.Text(line.value));
    }
  }
  /// Replaces the value of the key, or adds the key at the section's end. What ends a line becomes
  /// a blank, and blanks around the value are dropped.
  void SetValue(std::size_t section, StringView key, StringView value);

  SectionPool& Pool() const { return *pool_; }
  /// Adds its sections to another pool over the same texts, which must then take the place of its
  /// own one.
  void MoveTo(SectionPool& pool);
  /// The file's text, every line ended by CR LF.
  String ToText() const;

 private:
  friend class SectionEdit;
  struct Section {
    TextPool::Id name = 0;
    SectionPool::Id lines = 0;
  };

  std::span<const SectionPool::Line> Lines(std::size_t section) const;
  void Append(std::size_t section, std::span<const SectionPool::Line> lines);

  SectionPool* pool_ = nullptr;
  SectionPool::Id preamble_ = 0;  // lines before the first section
  std::vector<Section> sections_;
  std::vector<std::uint32_t> entries_;  // sections of entries, as far as they stand in order
  std::vector<std::uint32_t> others_;   // all other sections: of an ordinary file the first alone
};

/// The lines of one section while several of them change; they are kept at the end.
class SectionEdit {
 public:
  /// The draft must outlive this.
  SectionEdit(GenericDraft& draft, std::size_t section);

  /// See GenericDraft.
  std::optional<StringView> Value(StringView key) const;
  void SetValue(StringView key, StringView value);
  void Keep();

 private:
  GenericDraft& draft_;
  std::size_t section_;
  std::vector<SectionPool::Line> lines_;
};

}  // namespace norvo

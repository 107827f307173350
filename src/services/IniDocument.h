#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <unordered_map>
#include <vector>

#include "text/PositionTable.h"
#include "text/Text.h"

namespace norvo {

/// The text of an INI-style settings file: sections of key and value lines, in their order. Names
/// of sections and keys are matched without regard to case. Of two equal keys the first holds; two
/// equal sections are one. Lines that are neither (comments, blank lines) stay where they are.
/// Adding n keys costs O(n).
class IniDocument {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  IniDocument() = default;
  IniDocument(const IniDocument& other);
  IniDocument& operator=(const IniDocument& other);
  IniDocument(IniDocument&&) = default;
  IniDocument& operator=(IniDocument&&) = default;
  /// CR LF, LF and a lone CR end a line; ";" starts a comment line; blanks around names and values
  /// are not part of them; quotes stay.
  explicit IniDocument(String text);

  /// Position of a section, kNone when there is none.
  std::size_t FindSection(StringView name) const;
  std::size_t FindOrAddSection(StringView name);

  /// Nothing when the section lacks the key. The view holds until the document changes.
  std::optional<StringView> Value(std::size_t section, StringView key) const;
  /// Keys of a section in their order; equal keys come as often as they stand there.
  std::vector<StringView> Keys(std::size_t section) const;
  /// Calls `visit` with each key of a section and its value, in their order; equal keys come as
  /// often as they stand there.
  template <class Visit>
  void ForEachValue(std::size_t section, Visit&& visit) const {
    for (const Line& line : sections_.at(section).lines) {
      if (line.key.length > 0) visit(TextOf(line.key), TextOf(line.value));
    }
  }
  /// Replaces the value of the key, or adds the key at the section's end. A line end within the
  /// value becomes a blank; one at its end leaves an empty line behind the key.
  void SetValue(std::size_t section, StringView key, StringView value);

  /// The file's text, every line ended by CR LF.
  String ToText() const;

 private:
  /// A part of the pool.
  struct Piece {
    std::uint32_t start = 0;
    std::uint32_t length = 0;
  };
  /// A key and its value, or any other line, which is a value without a key. Their texts stand in
  /// the document's pool, so that a line costs no allocation of its own.
  struct Line {
    Piece key;
    Piece value;
  };
  struct Section {
    String name;
    std::vector<Line> lines;
    // Filled only for sections with many keys; small ones are searched.
    mutable PositionTable byKey;
    mutable std::size_t indexed = 0;  // lines that byKey covers
  };

  static void AddLine(std::vector<Line>& lines, Line added);
  Piece PieceOf(StringView text) const;
  Piece NewPiece(StringView text);
  StringView TextOf(Piece piece) const {
    return StringView(pool_).substr(piece.start, piece.length);
  }
  /// Position of the key's line in the section, kNone when there is none.
  std::size_t FindKey(const Section& section, StringView key) const;
  std::size_t SearchKey(const Section& section, StringView key) const;
  void IndexKeys(const Section& section) const;
  std::optional<std::size_t> FindIndexed(const Section& section, StringView key) const;

  String pool_;                   // the file's text, and behind it what was set since
  std::vector<Line> preamble_;    // lines before the first section
  std::deque<Section> sections_;  // its elements stay in place, for the names that byName_ views
  std::unordered_map<StringView, std::size_t, CaselessHash, CaselessEqual> byName_;
};

}  // namespace norvo

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "automation/RunTimeError.h"
#include "services/FileSystem.h"
#include "text/CodePage.h"
#include "text/Encoding.h"

namespace norvo {

/// Bytes of the largest playlist that is read. The longest are those that the ASX writer makes of
/// as many entries as can be counted (32,767): each takes 500 bytes, its names, and twice its path.
inline constexpr std::uint64_t kLargestPlaylist = 40u * 1024 * 1024;

/// Bytes of the largest text of any other kind.
inline constexpr std::uint64_t kLargestText = 64u * 1024 * 1024;

/// A playlist open for reading as text. It is 8-bit text in the code page unless it starts with a
/// UTF-8 or UTF-16 byte order mark. It is read piece by piece, as far as it is asked for. Error 7
/// when more is read than `kLargestPlaylist`.
class TextStream {
 public:
  /// Raises what `FileSystem::OpenForReading` raises.
  TextStream(FileSystem& files, StringView path, const CodePage& codePage);

  bool AtEnd();
  /// Everything from here to the end. At the end: error 62.
  String ReadAll();
  /// The next line, without its line end. CR LF and LF end a line; a CR alone does not. At the
  /// end: error 62.
  String ReadLine();
  void Close();

 private:
  bool ReadMore();
  void Start();
  std::size_t UnitSize() const;
  std::size_t FindLineFeed(std::size_t from) const;
  String Decode(std::string_view bytes) const;

  std::unique_ptr<BinaryFile> file_;
  const CodePage& codePage_;
  FileEncoding encoding_ = FileEncoding::CodePage;
  std::string buffer_;  // bytes read and not yet handed out, from position_ on
  std::size_t position_ = 0;
  std::uint64_t offset_ = 0;  // of the next byte to read from the file
  bool started_ = false;
  bool exhausted_ = false;
};

/// A text file open for appending, in the 8-bit code page. Lines are gathered and written in large
/// pieces; a line is never torn between two writes.
class TextWriter {
 public:
  TextWriter(FileSystem& files, StringView path, bool create, const CodePage& codePage);
  /// Writes what is left; an error is lost, so a caller that cares closes first.
  ~TextWriter();
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  /// Adds the text and CR LF. Raises what `AppendFile::Append` raises when a piece is full.
  void WriteLine(StringView text);
  /// Writes what is left and closes the file.
  void Close();

 private:
  void Flush();

  std::unique_ptr<AppendFile> file_;
  const CodePage& codePage_;
  std::string gathered_;
};

/// Error 7 for a file of so many bytes at most; it names the path, if one is given.
RunTimeError TooLarge(std::uint64_t most, StringView path = {});

/// All bytes of a file, read in pieces of growing size. `TooLarge` for a file of more than `most`.
std::string ReadWholeFile(BinaryFile& file, StringView path = {},
                          std::uint64_t most = kLargestText);

/// The same of the file at a path; nothing when there is none.
std::optional<std::string> ReadFileIfThere(FileSystem& files, StringView path);

}  // namespace norvo

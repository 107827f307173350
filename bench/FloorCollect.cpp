// The least work that collecting needs, done with system calls alone: every playlist is read
// whole, of every entry's file the start and the end are read, and one file per playlist is
// written. What a real run takes beyond this is its own cost.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace norvo::bench {
namespace {

constexpr std::size_t kStartSize = 4096;
constexpr std::size_t kEndSize = 128;
constexpr std::size_t kOutputPerEntry = 350;
constexpr mode_t kFileMode = 0644;

std::vector<std::string> ListFolder(const std::string& folder) {
  std::vector<std::string> names;
  DIR* listing = opendir(folder.c_str());
  if (listing == nullptr) return names;
  while (const dirent* item = readdir(listing)) {
    if (item->d_name[0] != '.') names.emplace_back(item->d_name);
  }
  closedir(listing);
  return names;
}

bool ReadWhole(const std::string& path, std::string& content) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  struct stat facts {};
  const bool isKnown = fstat(file, &facts) == 0;
  content.resize(isKnown ? static_cast<std::size_t>(facts.st_size) : 0);
  const ssize_t count = read(file, content.data(), content.size());
  close(file);
  return isKnown && count == facts.st_size;
}

bool WriteWhole(const std::string& path, const std::string& content) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kFileMode);
  if (file < 0) return false;
  const ssize_t count = write(file, content.data(), content.size());
  close(file);
  return count == static_cast<ssize_t>(content.size());
}

/** Reads the start and the end of one entry's file. */
bool TouchFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  struct stat facts {};
  std::array<char, kStartSize> start;
  std::array<char, kEndSize> end;
  const bool isRead =
      fstat(file, &facts) == 0 && read(file, start.data(), start.size()) >= 0 &&
      pread(file, end.data(), end.size(), facts.st_size - static_cast<off_t>(end.size())) >= 0;
  close(file);
  return isRead;
}

/** The reference that a playlist line holds; empty when it holds none. */
std::string_view ReferenceOf(std::string_view line, bool isPls) {
  if (line.empty() || line.front() == '#') return {};
  if (!isPls) return line;
  const std::size_t equals = line.find('=');
  const bool isFile = line.starts_with("File") && equals != std::string_view::npos;
  return isFile ? line.substr(equals + 1) : std::string_view();
}

/** Goes over the lines of one playlist; keeps its path buffers from line to line. */
class Collector {
 public:
  explicit Collector(const std::string& machine)
      : playlists_(machine + "/C/Playlists/"),
        output_(machine + "/floor-out/"),
        path_(machine + "/C/"),
        prefixSize_(path_.size()) {}

  bool Run() {
    if (mkdir(output_.c_str(), 0755) != 0 && access(output_.c_str(), W_OK) != 0) return false;
    const std::vector<std::string> names = ListFolder(playlists_);
    return std::all_of(names.begin(), names.end(),
                       [this](const std::string& name) { return CollectOne(name); });
  }

  std::size_t Entries() const { return entries_; }

 private:
  bool CollectOne(const std::string& name) {
    if (!ReadWhole(playlists_ + name, text_)) return false;
    const std::size_t before = entries_;
    if (!TouchAll(name.ends_with(".pls"))) return false;
    outputText_.assign((entries_ - before) * kOutputPerEntry, '.');
    return WriteWhole(output_ + name + ".out", outputText_);
  }

  bool TouchAll(bool isPls) {
    std::string_view rest = text_;
    while (!rest.empty()) {
      const std::size_t end = rest.find('\n');
      std::string_view line = rest.substr(0, end);
      rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
      if (line.ends_with('\r')) line.remove_suffix(1);
      if (!TouchReference(ReferenceOf(line, isPls))) return false;
    }
    return true;
  }

  bool TouchReference(std::string_view reference) {
    constexpr std::string_view kDrive = "C:\\";
    if (!reference.starts_with(kDrive)) return true;
    path_.resize(prefixSize_);
    path_ += reference.substr(kDrive.size());
    std::replace(path_.begin() + static_cast<std::ptrdiff_t>(prefixSize_), path_.end(), '\\', '/');
    ++entries_;
    return TouchFile(path_);
  }

  std::string playlists_;
  std::string output_;
  std::string path_;
  std::size_t prefixSize_;
  std::string text_;
  std::string outputText_;
  std::size_t entries_ = 0;
};

}  // namespace
}  // namespace norvo::bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: floor_collect DIR\n", stderr);
    return 2;
  }
  norvo::bench::Collector collector(argv[1]);
  if (!collector.Run()) {
    std::perror("floor_collect");
    return 1;
  }
  std::printf("%zu\n", collector.Entries());
  return 0;
}

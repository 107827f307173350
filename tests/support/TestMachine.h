#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "automation/RunTimeError.h"
#include "platform/files/DiskPath.h"
#include "platform/hosted/HostedPlatform.h"
#include "support/FreshFolder.h"
#include "support/Links.h"
#include "support/RaisedErrors.h"
#include "text/Encoding.h"

namespace norvo {

/// A machine in a fresh folder of its own, gone after the test. It has the drive C.
class TestMachine : public ::testing::Test {
 protected:
  TestMachine() { std::filesystem::create_directories(Disk("C")); }

  /// A place in the machine's folder.
  std::filesystem::path Disk(const std::string& path) const {
    return base_.Path() / "machine" / ToSystemPath(path);
  }
  /// A place beside it, which no drive reaches.
  std::filesystem::path Outside(const std::string& path) const {
    return base_.Path() / ToSystemPath(path);
  }

  static void Put(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string Get(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// A drive for each folder of these names beside the machine, from D on, with one song.
  HostedLayout DrivesIn(const std::vector<std::string>& names) {
    HostedLayout layout;
    for (const std::string& name : names) {
      Put(Outside(name) / "One.mp3", "x");
      const auto letter = static_cast<char16_t>(u'D' + layout.drives.size());
      layout.drives.push_back({letter, DriveType::Fixed, Outside(name)});
    }
    return layout;
  }

  HostedPlatform& Machine() {
    if (!platform_) {
      platform_ = std::make_unique<HostedPlatform>(Disk(""));
      platform_->SetWarningSink([this](StringView line, WarningWeight weight) {
        warnings_.push_back(ToUtf8(line));
        weights_.push_back(weight);
      });
    }
    return *platform_;
  }
  /// Forgets all that the platform has learnt.
  void Restart() { platform_.reset(); }
  FileSystem& Files() { return Machine().Files(); }

  std::string NameOf(StringView path) {
    const std::optional<FileFacts> facts = Files().FactsOf(path);
    return facts ? ToUtf8(facts->name) : "(none)";
  }

  std::string Read(StringView path) {
    const std::unique_ptr<BinaryFile> file = Files().OpenForReading(path);
    std::string bytes(static_cast<std::size_t>(file->Size()) + 10, '\0');
    bytes.resize(file->ReadAt(0, bytes));
    return bytes;
  }

  std::vector<std::string> warnings_;
  std::vector<WarningWeight> weights_;  // of the warnings

 private:
  FreshFolder base_{"norvo-hosted"};
  std::unique_ptr<HostedPlatform> platform_;
};

}  // namespace norvo

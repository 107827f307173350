#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "library/Library.h"
#include "support/MemoryPlatform.h"
#include "support/TextPrinting.h"

namespace norvo {

/// Of a configured product.
inline constexpr StringView kDataArea = u"C:\\My Documents\\Norvo Media\\KVs\\";

/// Keeps every log line, whatever the log switch says.
class LogCapture final : public Observer {
 public:
  explicit LogCapture(std::vector<String>& lines) : lines_(lines) {}
  void OnLogLine(StringView line) override { lines_.emplace_back(line); }

 private:
  std::vector<String>& lines_;
};

/// One library over one machine in memory.
class LibraryTest : public ::testing::Test {
 protected:
  LibraryTest() { component.SetObserver(&watcher); }

  std::shared_ptr<MemoryPlatform> platform = std::make_shared<MemoryPlatform>();
  /// All log lines so far, in order.
  std::vector<String> log;
  LogCapture watcher{log};
  std::unique_ptr<Component> library = OpenLibrary(platform);
  Component& component = *library;
};

}  // namespace norvo

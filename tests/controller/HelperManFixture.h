#pragma once

#include <map>
#include <memory>
#include <string>

#include "automation/AutomationObject.h"
#include "support/LibraryTest.h"

namespace norvo {

inline constexpr StringView kListFile = u"C:\\My Documents\\Norvo Media\\KVs\\PlayLists.txt";
inline constexpr const char* kQueueStart = "Retrieving List of PlayLists Found";

/// Adds a playlist of each of the six types, as its player writes it, and the media they name.
void AddSamplePlaylists(MemoryPlatform& platform);

/// Content of all generic files by path.
std::map<String, std::string> GenericFiles(const MemoryPlatform& platform);

/// The controller's members by name.
bool GenericQueue(const ObjectRef& controller, std::int32_t mode);
bool GetAllPlaylists(const ObjectRef& controller);
Lines GetPLSList(const ObjectRef& controller);

/// A controller on an installed product.
class HelperManFixture : public LibraryTest {
 protected:
  HelperManFixture() { platform->ConfigureProduct(); }

  ObjectRef NewController() { return component.Create(u"helperMan"); }
  /// The controller in hand, created on the first call.
  const ObjectRef& Controller();
  Lines LogLines() { return Utf8(log); }
  std::string ListText() { return platform->Bytes(kListFile); }
  /// Writes a list file with these lines behind its header section's name.
  void AddList(const Lines& lines);

 private:
  ObjectRef controller_;
};

}  // namespace norvo

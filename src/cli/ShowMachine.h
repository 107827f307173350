#pragma once

#include <memory>
#include <string>

#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "services/Component.h"

namespace norvo {

/// A machine to read one playlist of, without a trace on the disk but for the log, when that is
/// asked for: what the library writes goes with this object.
class ShowMachine {
 public:
  virtual ~ShowMachine() = default;

  virtual Component& Library() = 0;
  /// The playlist's path on the machine.
  virtual const String& Path() const = 0;
  /// The machine folder; empty for a playlist that belongs to none.
  virtual std::string Folder() const = 0;
};

/// HostError when the path names no playlist that can be reached.
std::unique_ptr<ShowMachine> OpenToShow(const CommonArguments& common, const std::string& path,
                                        Console& console);

}  // namespace norvo

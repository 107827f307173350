#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "cli/Command.h"
#include "move/WorkObserver.h"
#include "services/Platform.h"

namespace norvo::cli {

/// The machine that a command works on, and how its paths and those of this system lead to each
/// other. Paths of this system are UTF-8 where they are texts.
class NamedMachine {
 public:
  virtual ~NamedMachine() = default;

  virtual std::shared_ptr<norvo::Platform> Platform() = 0;
  /// What the machine calls the file that the user has named, by a path of the machine or of this
  /// system. CommandError when the machine cannot have it.
  virtual String MachinePathOf(const std::string& named) const = 0;
  /// The group root of a machine that has none yet, in UTF-8, unless another is asked for; empty
  /// for the usual one.
  virtual std::string UsualGroupRoot() const { return {}; }
  /// Keeps other runs from the machine as long as this lives; for commands that write to it.
  /// MoveError when another run has it, unless `--wait` was given.
  virtual void Lock() {}
  /// Reads ahead of a scan or a collecting on this machine as long as the result lives, which is to
  /// hear of its progress and must not outlive this; null where nothing does.
  virtual std::unique_ptr<WorkObserver> ReadAhead() { return nullptr; }
  /// True for a plain disk on which the product has no settings yet.
  virtual bool IsBareDisk() const { return false; }
};

/// Whether a command must know the documents folder, and so asks whose it is where there are many.
enum class DocumentsUse { Needed, Unneeded };

/// The machine that `--machine` names; on Windows, where nothing names one, the machine that the
/// program runs on. Its messages go to the console, which must outlive it, and so does what a disk
/// was taken as. MoveError when it is no machine.
std::shared_ptr<NamedMachine> OpenMachine(const CommonArguments& common, Console& console,
                                          DocumentsUse use);

/// A playlist that is to be shown, on its machine.
struct NamedPlaylist {
  std::shared_ptr<norvo::Platform> machine;
  String path;
  std::string folder;          ///< of the machine; empty for a playlist that belongs to none
  bool lacksSettings = false;  ///< a machine was named that has no settings of the product yet
  bool hasLog = true;          ///< there is a product folder that could take a log
};

/// The playlist at a path of a machine or of this system. No machine need be named: then a playlist
/// of this system is shown where it lies. CommandError when the path names none that can be
/// reached.
NamedPlaylist OpenPlaylist(const CommonArguments& common, const std::string& path,
                           Console& console);

/// True for "C:\..." and "C:/...".
bool IsMachinePath(std::string_view text);

/// "C:\Norvo\VBLog.txt (/mnt/old-disk/C/Norvo/VBLog.txt)": a path of the machine, and where that is
/// on this system; once where both are one.
std::string BothPaths(Platform& machine, StringView path);

}  // namespace norvo::cli

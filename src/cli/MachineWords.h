#pragma once

#include "move/WorkObserver.h"

namespace norvo::cli {

/// What is said differently of a machine that is held in a folder, and of the PC that the program
/// runs on. A "{command}" in it is to be filled in, see WithCommand.
struct MachineWords {
  const char* initCommand;         ///< how the settings are written
  const char* registry;            ///< where values are corrected
  const char* unwritableRegistry;  ///< a message
  const char* makeWritable;        ///< what helps where a folder cannot be created
  const char* makeSettable;        ///< what helps where a player's setting cannot be written
  const char* seeDenied;           ///< what helps where the system has denied a look; may be empty
  const char* nameDocuments;       ///< what helps where there is no documents folder
  const char* lacksDrive;          ///< the machine does
  const char* checkRights;         ///< what helps where the library has failed
};

extern const MachineWords kFolderWords;
extern const MachineWords kThisPcWords;

/// Those of the machine that the command works on, of a move by its side: of a folder, until the
/// program has chosen others, which it does before it runs a command.
const MachineWords& Words(MachineSide side = MachineSide::New);
void ChooseWords(const MachineWords& ofOld, const MachineWords& ofNew);

}  // namespace norvo::cli

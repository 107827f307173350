#pragma once

namespace norvo::cli {

/// What the program says differently on the systems that it runs on.
struct SystemWords {
  bool machinesAreFolders;         ///< and are named; else the machine is the one it runs on
  const char* initCommand;         ///< how the settings are written
  const char* registry;            ///< where values are corrected
  const char* unwritableRegistry;  ///< a message
  const char* makeWritable;        ///< what helps where a folder cannot be created
  const char* lacksDrive;          ///< the machine does
  const char* checkRights;         ///< what helps where the library has failed
};

/// Those of this system.
extern const SystemWords kWords;

}  // namespace norvo::cli

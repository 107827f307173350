#pragma once

namespace norvo {

/// What messages say differently on the systems that the program runs on.
struct SystemWords {
  const char* initCommand;         ///< how the settings are written
  const char* registry;            ///< where values are corrected
  const char* unwritableRegistry;  ///< a message
  const char* makeWritable;        ///< what helps where a folder cannot be created
  const char* lacksDrive;          ///< the machine does
  const char* checkRights;         ///< what helps where the library has failed
};

/// Those of this system.
extern const SystemWords kWords;

}  // namespace norvo

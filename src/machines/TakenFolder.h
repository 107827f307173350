#pragma once

#include <filesystem>
#include <string>

namespace norvo {

/// What a folder is taken as, where it may hold a machine or be a disk.
struct TakenFolder {
  /// By what it was decided, the first that fits.
  enum class Kind {
    ThisPc,            ///< no folder was named: the Windows PC that the process runs on
    NamedDrive,        ///< a drive, as the caller says, whatever it holds
    DescribedMachine,  ///< a machine, of which its machine.ini tells
    MadeMachine,       ///< a machine: it holds drive C and registry.reg, as a move leaves them
    DrivesAlone,       ///< a machine: it holds drive C, maybe others, and nothing else
    WindowsDisk,       ///< a disk: it has a folder at its top that Windows puts there
    OtherDisk,         ///< a disk, since it holds anything else
    Empty,             ///< neither yet: it holds nothing but hidden files and settings of a machine
    Missing            ///< neither yet: it is not there, or is no folder
  };

  std::filesystem::path folder;       ///< as it was named; empty for this PC
  Kind kind = Kind::Missing;          ///< what decided
  char16_t letter = u'C';             ///< of the drive that it is, or of the first that counts
  std::filesystem::path driveFolder;  ///< holds what is on that drive, or will
  std::string sign;                   ///< of WindowsDisk: the folder that tells, as it is spelled

  /// It holds a machine.
  bool IsMachine() const {
    return kind == Kind::DescribedMachine || kind == Kind::MadeMachine || kind == Kind::DrivesAlone;
  }
  /// It is a drive itself.
  bool IsDisk() const {
    return kind == Kind::NamedDrive || kind == Kind::WindowsDisk || kind == Kind::OtherDisk;
  }
};

/// Where nothing is named, as far as this system is a Windows PC.
inline TakenFolder TakeThisPc() {
  return {{}, TakenFolder::Kind::ThisPc, u'C', {}, {}};
}

/// The letter that "D", "d" or "D:" names. MoveError for what is no letter from C to Z.
char16_t DriveLetterOf(const std::string& drive);

/// The one rule for every folder that is named as a machine. A disk is drive C, unless `drive` says
/// otherwise: "D", "d" or "D:"; then the folder is that drive whatever it holds. MoveError when
/// `drive` is no letter from C to Z, when a machine.ini tells otherwise, or when the folder cannot
/// be listed.
TakenFolder TakeFolder(const std::filesystem::path& folder, const std::string& drive = {});

}  // namespace norvo

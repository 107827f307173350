#include "platform/win32/DiskCodes.h"

#include <windows.h>

namespace norvo {

bool TellsOfFailedDisk(std::uint32_t code) {
  switch (code) {
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_IO_DEVICE:
    case ERROR_FILE_CORRUPT:
    case ERROR_DISK_CORRUPT:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_NETNAME_DELETED:
    case ERROR_UNEXP_NET_ERR:
      return true;
    default:
      return false;
  }
}

bool TellsOfAbsentDisk(std::uint32_t code) {
  switch (code) {
    case ERROR_NOT_READY:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NO_NET_OR_BAD_PATH:
    case ERROR_NETWORK_UNREACHABLE:
      return true;
    default:
      return false;
  }
}

}  // namespace norvo

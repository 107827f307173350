#include "support/MemoryPlatform.h"

#include "automation/RunTimeError.h"

namespace norvo {

MemoryPlatform::MemoryPlatform()
    : files_(calls_),
      registry_(calls_),
      shell_(calls_),
      product_(calls_),
      migration_(calls_),
      messages_(calls_),
      scanner_(files_) {
  files_.SetVersion(u"C:\\WINDOWS\\system32\\shfolder.dll", u"6.0.2900.5512");
}

void MemoryPlatform::ConfigureProduct() {
  const String key = String(kBaseKey) + u"\\KVS";
  const String group = key + u"\\KVMediaPlayLists";
  SetRegistry(Hive::LocalMachine, key, u"mode", std::int32_t{0});
  SetRegistry(Hive::LocalMachine, group, u"SubGroupRootName", String(kGroupRoot));
  registry_.AddKey(Hive::LocalMachine, String(kGroupRoot) + u"KVs\\KVMediaPlayLists");
  AddFolder(u"C:\\Norvo");
  AddFile(String(kGroupRoot) + u"SubNames.txt",
          "[PlayListStrings]\r\nSzID001=Music\r\nSzID002=Music\r\nSzID003=Music\r\n"
          "SzID004=Music\r\nszID005=PlayLists\r\nszID006=\r\n");
}

DriveScanner* MemoryPlatform::Scanner() {
  calls_.Enter(u"Scanner");
  switch (scannerKind_) {
    case ScannerKind::Absent:
      return nullptr;
    case ScannerKind::Raising:
      throw RunTimeError(error::kCannotCreateObject);
    case ScannerKind::Working:
      break;
  }
  return &scanner_;
}

}  // namespace norvo

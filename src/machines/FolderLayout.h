#pragma once

#include <string>

#include "machines/TakenFolder.h"
#include "platform/hosted/HostedLayout.h"

namespace norvo {

/// What a machine in a folder shall have where the folder does not tell, or tells of several. Texts
/// are UTF-8 and may be empty; paths are full paths of the machine.
struct LayoutWishes {
  std::string user;            ///< whose documents folder is meant, by name; case does not matter
  std::string documents;       ///< the documents folder itself, which goes before all else
  std::string groupRoot;       ///< where the product's data shall be
  bool needsDocuments = true;  ///< else it is no matter whose they are, and nobody is asked
};

/// A folder laid out as a machine.
struct FolderLayout {
  HostedLayout layout;
  /// Where the product's data are, or shall be by the wishes; empty when nothing tells yet.
  String groupRoot;
  /// Where they go, in UTF-8, without a wish: below the documents folder of a disk,
  /// and below one that was wished for. Empty for the usual place.
  std::string usualGroupRoot;
  /// The registry's file, as the machine calls it, in UTF-8; empty when it lies on no drive.
  std::string registryPath;
};

/// The machine that a folder holds, or will hold, or that a disk is the one drive of: then its
/// registry is "Norvo\registry.reg" on it, and its documents folder is that of its user. Of several
/// users it is the one whose documents hold the product's data. Nothing is written. MoveError when
/// its settings cannot be read, when it must be asked whose documents are meant (ManyUsers), when
/// there is no such user or the product's data are another's (OtherUser), or when a wished path is
/// no full one or lies on a drive that there is not.
FolderLayout LayOut(const TakenFolder& taken, const LayoutWishes& wishes = {});

}  // namespace norvo

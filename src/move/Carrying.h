#pragma once

#include "move/MoveWork.h"
#include "move/RestoreLedger.h"
#include "services/Component.h"

namespace norvo {

/// Brings the adjusted generic files of a move into the new machine's documents folder, sub-folder
/// "Norvo PlayLists". One that is there already with the same content is left as it is; another
/// file of its name is never replaced, a number is added. What cannot be written is marked as left
/// out. MoveError when the machine has no documents folder.
///
/// A playlist that was restored by an earlier move, with the same content and its songs at the same
/// places, is known again by its key and stays as it is.
void CarryGenericFiles(Component& library, RestoreLedger& ledger, MoveWork& work);

}  // namespace norvo

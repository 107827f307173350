#include "cli/LockWords.h"

#include <string>

namespace norvo::cli {

LockWishes LockWishesOf(const CommonArguments& common, Console& console) {
  LockWishes wishes;
  wishes.wait = common.wait;
  wishes.onWaiting = [&console](const std::string& folder, const std::string& holder) {
    console.Note(folder + " is being worked on by " + (holder.empty() ? "another run" : holder) +
                 "; waiting until that is done.");
  };
  return wishes;
}

}  // namespace norvo::cli

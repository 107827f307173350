#pragma once

#include "services/Component.h"
#include "services/Logging.h"

namespace norvo {

/// Writes what it is shown to a machine's log: a component over an overlay would write its log
/// there, and it would go with it.
class LogBox final : public MessageDialog {
 public:
  /// `library` is the component over the machine itself, and must outlive this.
  explicit LogBox(Component& library) : library_(library) {}
  void Show(StringView, StringView text) override { WriteLog(library_, text); }

 private:
  Component& library_;
};

}  // namespace norvo

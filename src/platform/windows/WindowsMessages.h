#pragma once

#include "services/Platform.h"

namespace norvo {

/// Messages to the user, each in a box with one button.
class WindowsMessages final : public MessageDialog {
 public:
  /// `MessageBoxW`; returns when the user has confirmed.
  void Show(StringView title, StringView text) override;
};

}  // namespace norvo

#pragma once

#include "services/Component.h"

namespace norvo {

/// What the controller's operations could not look at; `member` is the operation's name as its log
/// lines have it, and `reason` the description of the error, with which they end: the platforms'
/// own descriptions name the path.

void WarnNotListed(Component& component, StringView member, StringView folder, StringView reason);
void WarnNotRead(Component& component, StringView member, StringView path, StringView reason);
/// Without an error that tells why.
void WarnNotRead(Component& component, StringView member, StringView path);

}  // namespace norvo

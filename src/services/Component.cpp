#include "services/Component.h"

#include <exception>
#include <utility>

#include "automation/RunTimeError.h"
#include "services/Logging.h"

namespace norvo {

Component::Component(std::shared_ptr<Platform> platform, std::span<const CreatableClass> classes)
    : platform_(std::move(platform)), classes_(classes) {
  platform_->SetWarningSink([this](StringView line, WarningWeight) { WriteLog(*this, line); });
}

Component::~Component() {
  platform_->SetWarningSink({});
  try {
    platform_->Migration().Flush();
  } catch (const std::exception&) {
    // Nobody is left to be told; the queue has flushed and reported before.
  }
}

ObjectRef Component::Create(StringView className) {
  for (const CreatableClass& row : classes_) {
    if (EqualsIgnoreCase(row.name, className)) return row.create(*this);
  }
  throw RunTimeError(error::kCannotCreateObject);
}

void Component::SetObserver(Observer* observer) {
  observer_ = observer == nullptr ? &nobody_ : observer;
}

void Component::SetLogMode(std::int32_t mode) {
  log_.mode = mode;
  log_.loaded = true;
}

}  // namespace norvo

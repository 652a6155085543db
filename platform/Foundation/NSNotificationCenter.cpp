#include <Foundation/NSNotificationCenter.h>

#include <algorithm>

namespace vexel {

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
  thread_local NSNotificationCenter center;
  return center;
}

void NSNotificationCenter::addObserver(NSObject& observer, std::string name, Handler handler) {
  std::erase_if(registrations_, [](const auto& r) { return !r->observer; });
  registrations_.push_back(
      std::make_shared<Registration>(Registration{&observer, std::move(name), std::move(handler)}));
}

void NSNotificationCenter::removeObserver(const NSObject& observer) {
  std::erase_if(registrations_, [&](const auto& r) {
    if (r->observer.get() != &observer) return false;
    r->removed = true;
    return true;
  });
}

void NSNotificationCenter::post(const NSNotification& notification) {
  const auto present = registrations_;
  for (const auto& r : present)
    if (r->name == notification.name && !r->removed && r->observer) r->handler(notification);
}

}  // namespace vexel

#pragma once

#include <any>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// What is announced: a name, the object it is about (may be absent) and anything the sender
/// attaches.
struct VEXEL_API NSNotification {
  /// Observers hear of one name.
  std::string name;
  /// What it is about; not owned.
  NSObject* object = nullptr;
  /// Whatever sender and observers have agreed on.
  std::any userInfo = {};
};

/// Delivers notifications at once, in the order in which observers registered. An observer that
/// is gone is skipped. Observers may register, remove and post while one is being delivered:
/// those registered during a delivery hear only later ones, those removed hear no more.
class VEXEL_API NSNotificationCenter {
 public:
  /// What is called, with the notification as it was posted; not to be empty.
  using Handler = std::function<void(const NSNotification&)>;

  /// The centre of the calling thread: each thread that draws figures has its own.
  static NSNotificationCenter& defaultCenter();

  /// Calls `handler` for every notification called `name` as long as `observer` lives.
  void addObserver(NSObject& observer, std::string name, Handler handler);
  /// Ends all registrations of `observer`.
  void removeObserver(const NSObject& observer);
  /// Calls the observers of the name, and returns when all have heard. What one throws reaches the
  /// sender: those behind it do not hear this time, and all stay registered.
  void post(const NSNotification& notification);

 private:
  struct Registration {
    NSWeak<NSObject> observer;
    std::string name;
    Handler handler;
    bool removed = false;
  };

  std::vector<std::shared_ptr<Registration>> registrations_;
};

}  // namespace vexel

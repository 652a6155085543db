#pragma once

#include <memory>

#include <Foundation/VexelAPI.h>

namespace vexel {

template <class T>
class NSWeak;

/// Base of everything that can be referred to without being owned: delegates, data sources,
/// views, graphs, plots. An object may be owned in any way (shared, unique, member, stack);
/// references of type NSWeak read as absent once it is gone.
class VEXEL_API NSObject {
 public:
  NSObject() = default;
  /// A copy is an object of its own: references to the original do not see it.
  NSObject(const NSObject&) noexcept {}
  NSObject& operator=(const NSObject&) noexcept { return *this; }
  virtual ~NSObject() = default;

 private:
  template <class T>
  friend class NSWeak;

  std::weak_ptr<const void> lifeline() const {
    if (!lifeline_) lifeline_ = std::make_shared<char>();
    return lifeline_;
  }

  mutable std::shared_ptr<const void> lifeline_;
};

/// A reference that does not own: `get()` is the object, or null once the object is gone.
/// Two references are equal when they give the same object.
template <class T>
class VEXEL_API NSWeak {
 public:
  NSWeak() = default;
  /// To an object, or to none.
  NSWeak(std::nullptr_t) {}
  NSWeak(T* object) : object_(object) {
    if (object) lifeline_ = static_cast<const NSObject&>(*object).lifeline();
  }

  /// The object, or null once it is gone; the last two must not be used then.
  T* get() const { return lifeline_.expired() ? nullptr : object_; }
  explicit operator bool() const { return get() != nullptr; }
  T* operator->() const { return get(); }
  T& operator*() const { return *get(); }

  /// The same object, or both null.
  friend bool operator==(const NSWeak& a, const NSWeak& b) { return a.get() == b.get(); }

 private:
  T* object_ = nullptr;
  std::weak_ptr<const void> lifeline_;
};

}  // namespace vexel

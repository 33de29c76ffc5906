#pragma once

#include <memory>
#include <type_traits>

namespace platform {

/// Base of everything that may be held by a Weak pointer. Copying an object does not copy who
/// watches it. User-interface thread only.
class WeakTarget {
 public:
  WeakTarget() = default;
  WeakTarget(const WeakTarget&) {}
  WeakTarget& operator=(const WeakTarget&) { return *this; }

 protected:
  ~WeakTarget() {
    if (life_) *life_ = false;
  }

 private:
  template <class T>
  friend class Weak;

  const std::shared_ptr<bool>& life() const {
    if (!life_) life_ = std::make_shared<bool>(true);
    return life_;
  }

  mutable std::shared_ptr<bool> life_;
};

/// A pointer that does not own and becomes null when its object dies. The object's class derives
/// from WeakTarget, or is an interface whose implementer does: then pass the implementer, whose
/// static type shows both. Null from the moment the WeakTarget base is destroyed, so an object
/// must not be reached through a Weak pointer by the destructors of its own members.
///
///     Weak<Delegate> delegate = &owner;
///     if (auto* alive = delegate.get()) alive->valueChanged();
template <class T>
class Weak {
 public:
  Weak() = default;
  Weak(std::nullptr_t) {}

  template <class U>
  requires std::is_convertible_v<U*, T*> && std::is_base_of_v<WeakTarget, std::remove_const_t<U>>
  Weak(U* object) : object_(object) {
    if (object) life_ = static_cast<const WeakTarget*>(object)->life();
  }

  /// For an interface that its implementer keeps private: `object` is that part of `owner`.
  Weak(T* object, const WeakTarget& owner) : object_(object), life_(owner.life()) {}

  template <class U>
  requires std::is_convertible_v<U*, T*> Weak(const Weak<U>& other)
      : object_(other.object_), life_(other.life_) {}

  T* get() const { return life_ && *life_ ? object_ : nullptr; }
  T* operator->() const { return get(); }
  T& operator*() const { return *get(); }
  explicit operator bool() const { return get() != nullptr; }

  friend bool operator==(const Weak& a, const Weak& b) { return a.get() == b.get(); }
  friend bool operator==(const Weak& a, const T* b) { return a.get() == b; }

 private:
  template <class U>
  friend class Weak;

  T* object_ = nullptr;
  std::shared_ptr<bool> life_;
};

}  // namespace platform

#pragma once

#include <mutex>
#include <utility>
#include <vector>

namespace foundation {

/// Stands in for something of the whole process as long as it lives: of several the one that was
/// made last. They may end in any order. There is one such something for each `T`. Any thread.
template <class T>
class Override {
 public:
  explicit Override(T value) : value_(std::move(value)) {
    const std::lock_guard lock(mutex());
    all().push_back(this);
  }
  ~Override() {
    const std::lock_guard lock(mutex());
    std::erase(all(), this);
  }
  Override(const Override&) = delete;
  Override& operator=(const Override&) = delete;

  /// Answers what `use` does with what stands in now, or with null. It does not end meanwhile, and
  /// no other thread is in here.
  template <class Use>
  static auto with(Use use) {
    const std::lock_guard lock(mutex());
    return use(all().empty() ? nullptr : &all().back()->value_);
  }

 private:
  // Never destroyed: threads may still ask while the program ends. Recursive: a use may ask, too.
  static std::recursive_mutex& mutex() {
    static auto& mutex = *new std::recursive_mutex;
    return mutex;
  }
  static std::vector<Override*>& all() {
    static auto& all = *new std::vector<Override*>;
    return all;
  }

  T value_;
};

}  // namespace foundation

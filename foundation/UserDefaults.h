#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/PropertyList.h"

namespace foundation {

/// Values by key that all processes of an app group share, under the name of their suite. Values
/// are written whole; no process waits for another longer than that one's write takes. User-interface
/// thread. Kept as a property list in the group's container.
class UserDefaults {
 public:
  /// None when the suite cannot be opened: there is no container of this name.
  static std::optional<UserDefaults> open(const std::string& suiteName);

  /// The value as it is stored now when it is an array, else none.
  std::optional<platform::PropertyList::Array> array(const std::string& key);
  /// Takes effect at once for this process, and for others together with the next change or at the
  /// next turn of the main run loop: a value that is removed and set again is never seen missing,
  /// whenever the process is killed.
  void removeObject(const std::string& key);
  /// An array that another process has changed since this one read or wrote it keeps that change:
  /// what this process has added to its own list and taken from it is done to the stored one.
  void setObject(const std::string& key, const platform::PropertyList::Array& value);
  /// Brings what is pending to where other processes see it, but for removals: see there.
  void synchronize();

 private:
  struct Suite;
  explicit UserDefaults(std::shared_ptr<Suite> suite);

  std::shared_ptr<Suite> suite_;
};

}  // namespace foundation

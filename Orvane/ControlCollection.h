#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "KestroUI/Container.h"
#include "KestroUI/ParamKey.h"

namespace orvane {

/// Every control that was built from the design, by key, in the order of the key strings so that
/// each run does the same. Shared by the controller and its section views. User-interface thread
/// only.
class ControlCollection {
 public:
  using Key = std::shared_ptr<kestroui::ParamKey>;
  using Controls = std::map<Key, std::shared_ptr<kestroui::Container>, kestroui::ParamKeyLess>;
  using Keys = std::map<std::string, Key, std::less<>>;

  std::size_t count() const { return controls_.size(); }
  const Controls& controls() const { return controls_; }
  /// The keys that are known, those without a container included.
  const Keys& allParamKeys() const { return allParamKeys_; }

  /// Null when there is none.
  std::shared_ptr<kestroui::Container> operator[](const Key& key) const;
  /// Null removes the entry.
  void set(const Key& key, std::shared_ptr<kestroui::Container> container);
  /// Makes a key string known.
  void addKey(const Key& key);
  /// The container of a known key, or null when it has none; an unknown key is fatal.
  std::shared_ptr<kestroui::Container> container(std::string_view key) const;
  void clear();

  /// Differs after each change, so that views notice when what they remember is out of date.
  std::uint64_t generation() const { return generation_; }

 private:
  Controls controls_;
  Keys allParamKeys_;
  std::uint64_t generation_ = 1;
};

}  // namespace orvane

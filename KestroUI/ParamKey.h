#pragma once

#include <memory>
#include <string>
#include <utility>

#include "KestroUI/ParameterUISettings.h"

namespace kestroui {

/// The key of one parameter together with how its control is built. Shared by whoever names the
/// parameter; two keys with the same string name the same parameter.
class ParamKey {
 public:
  explicit ParamKey(std::string key, ParameterUISettings settings = {})
      : key_(std::move(key)), settings_(std::move(settings)) {}

  const std::string& key() const { return key_; }
  const ParameterUISettings& settings() const { return settings_; }
  /// What its control is called: the display name, or the key where it has none.
  const std::string& title() const {
    return settings_.displayName.empty() ? key_ : settings_.displayName;
  }

 private:
  std::string key_;
  ParameterUISettings settings_;
};

/// Orders keys by their strings.
struct ParamKeyLess {
  bool operator()(const std::shared_ptr<ParamKey>& a, const std::shared_ptr<ParamKey>& b) const {
    return a->key() < b->key();
  }
};

}  // namespace kestroui

#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "KestroUI/Container.h"
#include "Orvane/DSPParameters.h"

namespace orvane {

/// Makes the control of a key as the key's settings describe it and the audio unit's parameters
/// need it. Lives while a set of controls is built.
class ControlBuilder {
 public:
  using Key = std::shared_ptr<kestroui::ParamKey>;

  /// `audioUnit` may be null; controls without a parameter stay still. `known` are the keys whose
  /// settings also hold where another control drives their parameter.
  ControlBuilder(platform::AudioUnit* audioUnit, const DSPParameters& parameters,
                 const std::vector<Key>& known);

  /// Null when the settings ask for no control.
  std::shared_ptr<kestroui::Container> build(const Key& key);

  /// A key for a parameter that the design does not describe: the plain control for its unit.
  static Key plainKey(const platform::AUParameter& parameter);
  /// The key of the parameter that a container's key stands for.
  static const std::string& parameterKey(const kestroui::Container& container,
                                         const std::string& key);

 private:
  std::shared_ptr<kestroui::Container> make(const kestroui::ParamKey& key) const;
  /// Those of the design, and those that a kind finds for itself in the registry.
  std::vector<std::string> attachedParameters(const kestroui::ParamKey& key) const;
  std::vector<Key> keysOf(const Key& key) const;
  std::vector<std::string> stringValues(const kestroui::ParamKey& key) const;
  void applySettings(kestroui::Container& container, const kestroui::ParamKey& key) const;
  void applyParameters(kestroui::Container& container) const;
  /// Sounds and recordings that the audio unit gives.
  void applyDisplay(kestroui::Container& container) const;
  void watch(kestroui::Container& container) const;

  platform::AudioUnit* audioUnit_;
  const DSPParameters& parameters_;
  std::unordered_map<std::string, Key> known_;
};

}  // namespace orvane

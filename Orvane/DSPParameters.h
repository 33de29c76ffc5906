#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/AUParameter.h"
#include "platform/AudioUnit.h"

namespace orvane {

/// Wants to know the new values of a parameter. Registered with DSPParameters::setObserver.
class DSPParameterObserver {
 public:
  virtual ~DSPParameterObserver() = default;

  /// User-interface thread, after the value has changed.
  virtual void update(platform::AUParameter& parameter, const std::string& key) = 0;
};

/// The parameters of the audio unit by key and by address, and who wants to know of their changes.
/// Owned by the controller and filled when it connects. User-interface thread only.
class DSPParameters {
 public:
  enum class Convert { no, yes };

  /// Takes the parameters of `audioUnit` that `keys` name in place of all it had; a key without a
  /// parameter is skipped. Observers stay.
  void registerParameters(platform::AudioUnit& audioUnit, const std::vector<std::string>& keys);

  /// In the order of registration.
  const std::vector<std::string>& keys() const { return keys_; }
  /// Null for an unknown key, and for every key once the audio unit is gone.
  platform::AUParameter* operator[](const std::string& key) const;
  /// The key of the parameter at `address`, or null.
  const std::string* key(platform::AUParameterAddress address) const;
  /// The keys of all parameters by address.
  const std::unordered_map<platform::AUParameterAddress, std::string>& parameterMap() const {
    return parameterMap_;
  }
  /// The key of the parameter that a control's key stands for: the key itself, except for those of
  /// the side chain's filters.
  static const std::string& parameterKey(const std::string& controlKey);

  /// At most one observer for each key: a later one replaces the earlier, null removes it.
  void setObserver(std::shared_ptr<DSPParameterObserver> observer, const std::string& key);
  /// Tells the observer of `key`, if there is one, that the parameter has a new value.
  void notify(const std::string& key);

  /// Sets a parameter to `inValue`, which with Convert::yes is a position from 0 to 1. An unknown
  /// key does nothing.
  void set(float inValue, const std::string& key, Convert convert);

 private:
  platform::Weak<platform::AudioUnit> audioUnit_;
  std::vector<std::string> keys_;
  std::unordered_map<std::string, platform::AUParameter*> parameters_;
  std::unordered_map<std::string, std::shared_ptr<DSPParameterObserver>> observers_;
  std::unordered_map<platform::AUParameterAddress, std::string> parameterMap_;
};

}  // namespace orvane

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Quillon/ObserverList.h"
#include "Quillon/Parameter.h"
#include "Quillon/ParameterDescription.h"
#include "platform/AUParameter.h"

namespace quillon {

/// The parameters of one audio unit, in the order in which they were described, and the observers
/// of their values.
class ParameterTree final : public platform::AUParameterTree {
 public:
  /// Throws std::invalid_argument, naming the key, when a key is empty or a key or an address
  /// appears twice, a range is empty the wrong way round, a number is not finite or a default lies
  /// outside its range.
  explicit ParameterTree(std::vector<ParameterDescription> descriptions);
  ~ParameterTree() override;

  const std::vector<platform::AUParameter*>& allParameters() const override { return all_; }
  platform::AUParameter* parameterWithAddress(platform::AUParameterAddress address) const override;
  platform::AUParameterObserverToken tokenByAddingParameterObserver(Observer observer) override;
  void removeParameterObserver(platform::AUParameterObserverToken token) override;
  void setGestureObserver(
      std::function<void(platform::AUParameterAddress, bool began)> observer) override;

  std::size_t size() const { return parameters_.size(); }
  const std::vector<std::string>& keys() const { return keys_; }
  /// `index` is less than size().
  Parameter& at(std::size_t index) const { return *parameters_[index]; }
  std::optional<std::size_t> indexOfKey(std::string_view key) const;

 private:
  friend class Parameter;

  void gesture(platform::AUParameterAddress address, bool began);

  std::vector<std::unique_ptr<Parameter>> parameters_;
  std::vector<platform::AUParameter*> all_;
  std::vector<std::string> keys_;
  /// The views are of the parameters' own keys.
  std::unordered_map<std::string_view, std::size_t> indexOfKey_;
  std::unordered_map<platform::AUParameterAddress, std::size_t> indexOfAddress_;
  ObserverList observers_;
  std::function<void(platform::AUParameterAddress, bool)> gestureObserver_;
};

}  // namespace quillon

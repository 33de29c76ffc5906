#include "Quillon/ParameterTree.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace quillon {

namespace {

[[noreturn]] void reject(const ParameterDescription& parameter, const std::string& why) {
  throw std::invalid_argument("parameter '" + parameter.key + "': " + why);
}

void checkRange(const ParameterDescription& parameter) {
  const auto requireFinite = [&](float number, const char* name) {
    if (!std::isfinite(number)) reject(parameter, std::string(name) + " is not a finite number");
  };
  requireFinite(parameter.minValue, "min");
  requireFinite(parameter.maxValue, "max");
  requireFinite(parameter.defaultValue, "default");
  if (parameter.minValue > parameter.maxValue) reject(parameter, "min is greater than max");
  if (parameter.defaultValue < parameter.minValue || parameter.defaultValue > parameter.maxValue)
    reject(parameter, "default lies outside min to max");
}

}  // namespace

ParameterTree::ParameterTree(std::vector<ParameterDescription> descriptions) {
  parameters_.reserve(descriptions.size());
  for (ParameterDescription& description : descriptions) {
    if (description.key.empty())
      throw std::invalid_argument("parameter number " + std::to_string(parameters_.size()) +
                                  ": the key is empty");
    checkRange(description);
    if (description.displayName.empty()) description.displayName = description.key;
    const std::size_t index = parameters_.size();
    parameters_.push_back(std::make_unique<Parameter>(*this, std::move(description)));
    Parameter& parameter = *parameters_.back();
    if (!indexOfKey_.emplace(parameter.key(), index).second)
      reject(parameter.description(), "the key appears twice");
    const auto [other, isNew] = indexOfAddress_.emplace(parameter.address(), index);
    if (!isNew)
      reject(parameter.description(), "address " + std::to_string(parameter.address()) +
                                          " belongs to '" + at(other->second).key() + "' already");
    all_.push_back(&parameter);
    keys_.push_back(parameter.key());
  }
}

ParameterTree::~ParameterTree() = default;

platform::AUParameter* ParameterTree::parameterWithAddress(
    platform::AUParameterAddress address) const {
  const auto found = indexOfAddress_.find(address);
  return found == indexOfAddress_.end() ? nullptr : parameters_[found->second].get();
}

std::optional<std::size_t> ParameterTree::indexOfKey(std::string_view key) const {
  const auto found = indexOfKey_.find(key);
  if (found == indexOfKey_.end()) return std::nullopt;
  return found->second;
}

platform::AUParameterObserverToken ParameterTree::tokenByAddingParameterObserver(
    Observer observer) {
  return observers_.add(std::move(observer));
}

void ParameterTree::removeParameterObserver(platform::AUParameterObserverToken token) {
  observers_.remove(token);
}

void ParameterTree::setGestureObserver(
    std::function<void(platform::AUParameterAddress, bool)> observer) {
  gestureObserver_ = std::move(observer);
}

void ParameterTree::gesture(platform::AUParameterAddress address, bool began) {
  // A copy: the observer may be replaced while it runs.
  const auto observer = gestureObserver_;
  if (observer) observer(address, began);
}

}  // namespace quillon

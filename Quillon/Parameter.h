#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "Quillon/ParameterDescription.h"
#include "platform/AUParameter.h"

namespace quillon {

class ParameterTree;

/// One parameter of a CommonAudioUnit. Its tree owns it.
class Parameter final : public platform::AUParameter {
 public:
  /// `description` has been checked by the tree.
  Parameter(ParameterTree& tree, ParameterDescription description);
  Parameter(const Parameter&) = delete;
  Parameter& operator=(const Parameter&) = delete;

  const std::string& key() const override { return description_.key; }
  platform::AUParameterAddress address() const override { return description_.address; }
  const std::string& displayName() const override { return description_.displayName; }
  float minValue() const override { return description_.minValue; }
  float maxValue() const override { return description_.maxValue; }
  platform::AudioUnitParameterUnit unit() const override { return description_.unit; }
  std::uint32_t flags() const override { return description_.flags; }
  const std::vector<std::string>& valueStrings() const override {
    return description_.valueStrings;
  }
  const ParameterDescription& description() const { return description_; }

  float value() const override { return value_.load(std::memory_order_relaxed); }
  void setValue(float value, platform::AUParameterObserverToken originator = nullptr) override;
  /// The two halves of setValue, for who sets many at once: nobody hears of a value before all are
  /// stored. `tell` says what the value is by then.
  void store(float value);
  void tell();

  void beginGesture() override;
  void endGesture() override;

  std::string stringFromValue(float value) const override;

 private:
  float settled(float value) const;

  ParameterTree& tree_;
  const ParameterDescription description_;
  const bool isWhole_;
  std::atomic<float> value_;
  /// How many hands are on it.
  int gestures_ = 0;
};

}  // namespace quillon

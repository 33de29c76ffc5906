#pragma once

#include "KestroUI/DisplayView.h"
#include "KestroUI/ShapeContainer.h"

namespace kestroui {

/// Base of the kinds that show what a processor does with the sound. The kind owns its DisplayView
/// and gives it to `setDisplay`.
class DisplayContainer : public ShapeContainer {
 public:
  const DisplayView* display() const { return display_; }

  void setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) override;
  void showValue(const std::string& key, float value, const std::string& text) override;
  void setKeyRange(std::size_t index, float minimum, float maximum) override;
  void setKeyStringValues(std::size_t index, const std::vector<std::string>& values) override;
  void setColors(const std::vector<platform::Color>& colors) override;
  void updateModulation() override;

 protected:
  /// Called once by the kind's constructor.
  void setDisplay(DisplayView& display);

 private:
  DisplayView* display_ = nullptr;
};

}  // namespace kestroui

#pragma once

#include "KestroUI/Switches.h"
#include "KestroUI/ValueContainers.h"

namespace kestroui {

/// A value that can be muted: a knob, and a switch for the second key, which is 1 while it is muted
/// and shows the knob so.
class MutableContainer : public KnobContainer {
 public:
  MutableContainer();

  void setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) override;
  using Container::value;
  float value(std::size_t index) const override;
  std::optional<platform::Point> handlePlace(std::size_t index) const override;
  void showValue(std::size_t index, float value, const std::string& text) override;
  void setKeyRange(std::size_t index, float minimum, float maximum) override;
  bool hasBadge(std::size_t index) const override;
  void setInactive(bool inactive) override;
  void updateModulation() override;
  void draw(const platform::Rect& rect) override;

 protected:
  platform::Rect controlFrame() const override;
  void onEditingDidBegin() override;
  void onEditingDidEnd() override;

 private:
  void onMuted();
  void onMuteHeld();
  void onMuteLetGo();
  void style();
  /// What the switch takes of `frame`; empty without one, or without room for it.
  platform::Rect muteFrame(const platform::Rect& frame) const;

  /// Hidden without a second key.
  OnOffButton muteButton_{{"M"}};
};

}  // namespace kestroui

#pragma once

#include <memory>
#include <vector>

#include "KestroUI/Container.h"
#include "KestroUI/ValueContainers.h"

namespace kestroui {

/// Several knobs in one place, one for each of its keys. Each has its own key, title and text.
class MultipleContainer : public Container, public ContainerDelegate {
 public:
  MultipleContainer();
  ~MultipleContainer() override;

  /// In the order of the keys.
  const std::vector<std::unique_ptr<KnobContainer>>& subContainers() const { return knobs_; }
  /// Null for a key that is none of its own.
  KnobContainer* subContainer(const std::string& key) const;

  void setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) override;
  using Container::value;
  float value(std::size_t index) const override;
  std::optional<platform::Point> handlePlace(std::size_t index) const override;
  void showValue(std::size_t index, float value, const std::string& text) override;
  void setKeyRange(std::size_t index, float minimum, float maximum) override;
  void setKeyStringValues(std::size_t index, const std::vector<std::string>& values) override;
  void setInverted(bool inverted) override;
  void updateModulation() override;
  void setControlColor(platform::Color color) override;
  void setColors(const std::vector<platform::Color>& colors) override;
  void setInactive(bool inactive) override;
  void setMappable(bool mappable) override;
  void setMidiMappingEnabled(bool enabled) override;
  // Each knob has a badge of its own; one over all of them would cover those.

  bool hasBadge(std::size_t) const override { return false; }
  using Container::midiMapMessage;
  using Container::midiMapSelected;
  using Container::setMidiMapMessage;
  using Container::setMidiMapSelected;
  bool midiMapSelected(std::size_t index) const override;
  std::optional<MidiMessage> midiMapMessage(std::size_t index) const override;
  void setMidiMapSelected(std::size_t index, bool selected) override;
  void setMidiMapMessage(std::size_t index, std::optional<MidiMessage> message) override;
  void updateMidiMappingVisibility() override;
  void draw(const platform::Rect& rect) override;

  // What its knobs tell
  void didDoubleTap(const std::shared_ptr<ParamKey>& key) override;
  void didBeginGesture(Container& container,
                       const std::vector<std::shared_ptr<ParamKey>>& keys) override;
  void didEndGesture(Container& container,
                     const std::vector<std::shared_ptr<ParamKey>>& keys) override;
  void didSelectMidiMap(const std::shared_ptr<ParamKey>& key, Container* container) override;
  void wantToDeleteMidiMap(const std::shared_ptr<ParamKey>& key) override;

 protected:
  std::vector<std::size_t> movedIn(toolkit::Control& sender) override;

 private:
  void styleKnobs();

  std::vector<std::unique_ptr<KnobContainer>> knobs_;
  bool inverted_ = false;
};

}  // namespace kestroui

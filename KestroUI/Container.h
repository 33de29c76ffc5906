#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "KestroUI/KestroControl.h"
#include "KestroUI/ParamKey.h"
#include "KestroUI/Theme.h"
#include "toolkit/Control.h"
#include "toolkit/Label.h"
#include "toolkit/Layer.h"

namespace kestroui {

class Container;
class ParamKey;

/// What a container tells its owner beside the value-changed event. Held weakly; any callback may
/// destroy the container. User-interface thread only.
class ContainerDelegate {
 public:
  virtual ~ContainerDelegate() = default;

  /// A double tap on the control of `key`; null when the container has no key.
  virtual void didDoubleTap(const std::shared_ptr<ParamKey>& key) = 0;
  /// The user takes hold of what moves `keys`, and lets go of them again. Kinds with several
  /// handles tell of each on its own.
  virtual void didBeginGesture(Container& container,
                               const std::vector<std::shared_ptr<ParamKey>>& keys) = 0;
  virtual void didEndGesture(Container& container,
                             const std::vector<std::shared_ptr<ParamKey>>& keys) = 0;
  /// In learn mode the user selects the control of `key`, which `container` holds, to be bound to
  /// the next MIDI message.
  virtual void didSelectMidiMap(const std::shared_ptr<ParamKey>& /*key*/,
                                Container* /*container*/) {}
  /// The user wants the binding of `key` gone.
  virtual void wantToDeleteMidiMap(const std::shared_ptr<ParamKey>& /*key*/) {}
};

class MidiMapBadge;

/// A control of one or more parameters with its title: what a slot of a design shows. Each kind is
/// a subclass that owns its control and gives it to `setControl`. The owner listens to
/// valueChanged and then reads the values of its movedIndices. Shared by the control collection and
/// the design; the view tree only links to it. User-interface thread only.
class Container : public toolkit::Control {
 public:
  /// Whether `value` is a position from 0 to 1 in the parameter's own range, a place in pitch
  /// between 20 Hz and 20 kHz from 0 to 1, or the parameter's own value.
  enum class ValueForm { position, pitch, raw };

  Container();
  ~Container() override;

  // Keys and values

  /// The parameters that it drives, its own first; empty until it is bound.
  const std::vector<std::shared_ptr<ParamKey>>& paramKeys() const { return paramKeys_; }
  virtual void setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys);
  /// The own key, or null.
  std::shared_ptr<ParamKey> key() const;
  /// The place of a key among its keys, or none.
  std::optional<std::size_t> indexOf(const std::string& key) const;

  /// Those of the own key.
  float value() const;
  void setValue(float value);
  // Of the key at a place among its keys, the own one at 0.

  virtual ValueForm valueForm(std::size_t index) const;
  /// The base answers for every place with its one value.
  virtual float value(std::size_t index) const;
  /// Where a finger takes hold of the value, in this view's coordinates; none for kinds of one
  /// value, which are taken anywhere, and where there is no key.
  virtual std::optional<platform::Point> handlePlace(std::size_t /*index*/) const {
    return std::nullopt;
  }
  /// The key whose value is meant at a place of this view: that of the nearest handle, where the own
  /// value has one; else the own, but for a finger's width around the other handles. Null without keys.
  std::shared_ptr<ParamKey> keyAt(platform::Point place) const;
  /// Shows a value that the audio unit has, and its text. Sends nothing; the base shows the own
  /// value alone.
  virtual void showValue(std::size_t index, float value, const std::string& text);
  /// What the value label shows for the own key: the last text given to showValue.
  const std::string& valueText() const { return valueText_; }
  /// The range of the own parameter. Raw kinds take values within it; knobs and sliders fill from
  /// the centre when it is symmetrical around 0, and step when they have string values.
  virtual void setValueRange(float minimum, float maximum);
  /// The range of the parameter of any of its keys; the base knows the own one only.
  virtual void setKeyRange(std::size_t index, float minimum, float maximum);
  /// Texts of the values from the range's minimum up. Kinds that choose show them; knobs and
  /// sliders step from one to the next. Empty for a parameter that takes any value.
  virtual void setStringValues(const std::vector<std::string>& values);
  /// Those of any of its keys; the base knows the own ones only.
  virtual void setKeyStringValues(std::size_t index, const std::vector<std::string>& values);

  /// The places among its keys of the values that the user has just moved, for whoever is told
  /// valueChanged; empty when somebody else told it.
  const std::vector<std::size_t>& movedIndices() const { return moved_; }
  /// The places among its keys of the values that the handle under a double tap moves, for whoever
  /// is told didDoubleTap of one of them; empty at any other time.
  const std::vector<std::size_t>& tappedIndices() const { return tapped_; }

  /// The control that holds the value, or null for kinds that have none or several values.
  KestroControl* control() const { return control_; }

  platform::Weak<ContainerDelegate> delegate;

  /// Which attached parameters move together.
  const std::vector<bool>& links() const { return links_; }
  virtual void setLinks(std::vector<bool> links);
  virtual void setInverted(bool inverted);
  /// The colours of a multi-colour control; the first is also the accent when no control colour is
  /// given.
  virtual void setColors(const std::vector<platform::Color>& colors);
  virtual void setControlColor(platform::Color color);
  /// The colour of where it stands, for a control that has none of its own.
  virtual void setSectionColor(platform::Color color) { setControlColor(color); }

  // Live modulation

  /// Live output values of its keys, in the parameters' own units, written by the render thread.
  /// A key without one is left out.
  std::vector<const std::atomic<float>*> watchedValues;
  /// Live modulation flags of its keys; a key without one is left out.
  std::vector<const std::atomic<bool>*> isModulating;
  /// Adds the live value and the flag of a key to what is watched; null for what it has not.
  void watch(std::size_t index, const std::atomic<float>* value, const std::atomic<bool>* flag);
  void watchNothing();
  /// The live value of a key: none without one, unless its flag is up, when it is no number and
  /// while modulation is not allowed.
  std::optional<float> liveValue(std::size_t index) const;
  /// The same as `showValue` would take it.
  std::optional<float> livePosition(std::size_t index) const;
  /// The live value of a key in the parameter's own unit, its flag aside: what a meter shows. None
  /// without one, or when it is no number.
  std::optional<float> liveOutput(std::size_t index) const;
  /// Off: live values are not shown.
  bool allowModulation = true;
  /// Has live values or flags to show, so that it is asked at each display frame.
  virtual bool hasModulation() const { return !watchedValues.empty() || !isModulating.empty(); }
  /// Reads the live values and shows them; called once per display frame. The base does nothing.
  virtual void updateModulation() {}
  /// From a value of the parameter of a key to what `showValue` takes for it; the identity at first.
  std::function<float(std::size_t index, float value)> positionOfValue;

  // MIDI learn: in learn mode a badge covers each value; a tap selects it instead of moving it.

  /// The bytes of the message that moves the control, its status byte first.
  using MidiMessage = std::vector<std::uint8_t>;

  /// May be bound to messages. On at first; kinds that only show are not.
  bool mappable() const { return mappable_; }
  virtual void setMappable(bool mappable);
  /// Whether the value at this place among its keys has a badge: the own one, and in kinds of several
  /// values each that the user can move.
  virtual bool hasBadge(std::size_t index) const { return mappable_ && index == 0; }
  /// Learn mode.
  bool midiMappingEnabled() const { return midiMappingEnabled_; }
  virtual void setMidiMappingEnabled(bool enabled);
  /// The value at this place, or any that has a badge of this container, waits for a message.
  bool midiMapSelected() const;
  virtual bool midiMapSelected(std::size_t index) const;
  /// All of its values, or one.
  void setMidiMapSelected(bool selected);
  virtual void setMidiMapSelected(std::size_t index, bool selected);
  /// The binding of a value, or null.
  std::optional<MidiMessage> midiMapMessage() const { return midiMapMessage(0); }
  virtual std::optional<MidiMessage> midiMapMessage(std::size_t index) const;
  void setMidiMapMessage(std::optional<MidiMessage> message);
  virtual void setMidiMapMessage(std::size_t index, std::optional<MidiMessage> message);
  /// Shows the badges in learn mode and hides them otherwise.
  virtual void updateMidiMappingVisibility();
  /// Null until learn mode was on, and for a value that has none.
  MidiMapBadge* midiMapBadge(std::size_t index = 0) const;

  // Presentation

  virtual void setTitle(const std::string& title);
  const std::string& title() const { return title_; }
  /// What its control is called: the title, or the own key where it has none.
  std::string accessibilityName() const;
  /// Shows the title. On at first. Without it, and in very small places, only the control shows.
  bool displayTitle() const { return displayTitle_; }
  virtual void setDisplayTitle(bool display);
  toolkit::Label& titleLabel() { return titleLabel_; }
  platform::Color bgColor() const { return backgroundColor(); }
  void setBgColor(platform::Color color) { setBackgroundColor(color); }
  // Icon and margins are for controls that the plug-in makes itself; a design's settings name none.

  /// An outline in the unit square, shown in place of the title.
  const platform::Path& iconPath() const { return iconPath_; }
  void setIconPath(platform::Path path);
  toolkit::ShapeLayer& iconLayer() { return iconLayer_; }
  /// Free space above and below, in points.
  double topMargin() const { return topMargin_; }
  double bottomMargin() const { return bottomMargin_; }
  void setMargins(double top, double bottom);
  /// Its page is the one shown.
  bool isVisible() const { return visible_; }
  virtual void setIsVisible(bool visible);
  /// Its section is switched off: shown muted, still usable.
  bool isInactive() const { return inactive_; }
  virtual void setInactive(bool inactive);
  /// How much larger labels are than on the smallest editor; the controller sets it from its size.
  double labelHRatio() const { return labelHRatio_; }
  void setLabelHRatio(double ratio);

  // Actions

  /// The control's valueChanged: passes it on as this container's own. May destroy the container.
  void handleValueChanged(toolkit::Control& sender);
  /// The second tap of a double tap: tells the delegate of the own key.
  void doubleTap();

  /// A badge was tapped: tells the delegate to select its key.
  void handleSelected(toolkit::Control& sender);
  /// A badge's cross was tapped: asks the delegate to delete its key's binding.
  void wantsToDeleteMap(toolkit::Control& sender);

  /// While the mouse is over it, the title shows the value.
  void hoverChanged(bool hovered) override;

  void draw(const platform::Rect& rect) override;

 protected:
  /// Adds the kind's control and listens to it; called once by the kind's constructor.
  void setControl(KestroControl& control);
  /// The same for a control of several values, which the kind itself tells apart.
  void setFace(GestureControl& face);
  /// Adds a control that it has, which is named as the container where it has no name.
  void addPart(GestureControl& part);
  /// The places of the values that the user has moved in `sender`, one of its controls; the own one
  /// in the base class.
  virtual std::vector<std::size_t> movedIn(toolkit::Control& sender);
  /// Sends valueChanged for values that the user has moved; may destroy the container.
  void sendMoved(std::vector<std::size_t> indices);
  /// The place that is left for the control, between margins and title.
  virtual platform::Rect controlFrame() const;
  /// Whether the title has room in the current size.
  bool showsTitle() const;
  /// Height of the line that the title takes, in points.
  double titleHeight() const;
  /// How much larger texts are than on the smallest editor: less than the editor itself, which has
  /// more room to show more, not the same in larger letters.
  double textScale() const { return textScale_; }
  /// The accent of its controls: the control colour, else the first of the colours, else grey.
  platform::Color accent() const { return accent_; }
  /// Tells the delegate of the key at `index`, whose handle moves the values at `handle`; may destroy
  /// the container.
  void tellDoubleTap(std::size_t index, std::vector<std::size_t> handle);
  /// What a control's gesture tells: passes it to the delegate.
  virtual void onEditingDidBegin();
  virtual void onEditingDidEnd();
  /// Tells the delegate that the user takes hold of `keys`, or lets go of them.
  enum class Hold { begins, ends };
  void tellGesture(Hold hold, const std::vector<std::shared_ptr<ParamKey>>& keys);
  /// What stands in place of the title while the control moves or is hovered over.
  virtual std::string movingText() const { return valueText_; }
  /// Whether it moves or is hovered over, so that the value stands in place of the title.
  bool showsValue() const;
  void updateTitleLabel();

 private:
  /// Below the title, in points.
  double bottomGap() const;
  void updateTextScale();
  void showBadge(std::size_t index);
  void placeBadges();
  /// The key whose badge, or the cross of whose badge, this is.
  std::shared_ptr<ParamKey> keyOfBadge(const toolkit::Control& sender) const;

  /// Where the live value and the flag of a key are among those that are watched.
  struct LiveKey {
    std::size_t index, value;
    std::optional<std::size_t> flag;
  };
  /// What is known of a value in learn mode.
  struct MidiValue {
    std::optional<MidiMessage> message;
    bool selected = false;
    std::unique_ptr<MidiMapBadge> badge;
  };

  std::vector<std::shared_ptr<ParamKey>> paramKeys_;
  std::vector<bool> links_;
  std::vector<std::size_t> moved_;
  std::vector<std::size_t> tapped_;
  std::vector<LiveKey> liveKeys_;
  KestroControl* control_ = nullptr;
  /// The control, of one value or several: what is laid out and coloured.
  GestureControl* face_ = nullptr;
  std::string title_;
  std::string valueText_;
  toolkit::Label titleLabel_;
  platform::Path iconPath_;
  platform::Color accent_ = Theme::grey;
  bool hasControlColor_ = false;
  toolkit::ShapeLayer iconLayer_;
  double topMargin_ = 0;
  double bottomMargin_ = 0;
  double labelHRatio_ = 1;
  double textScale_ = 1;
  bool displayTitle_ = true;
  bool visible_ = false;
  bool inactive_ = false;
  bool mappable_ = true;
  bool midiMappingEnabled_ = false;
  /// In the order of the keys, and never empty.
  std::vector<MidiValue> midi_;
};

}  // namespace kestroui

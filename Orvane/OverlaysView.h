#pragma once

#include "Orvane/AboutOverlay.h"
#include "Orvane/PresetViewOverlay.h"
#include "platform/AudioUnit.h"

namespace orvane {

/// Holds what covers the whole editor; touches go through it where nothing does. Owned by the main
/// controller. User-interface thread only.
class OverlaysView : public toolkit::View {
 public:
  /// `library` outlives it.
  explicit OverlaysView(PresetLibrary& library) : library_(library), presetViewOverlay_(library) {}

  AboutOverlay& aboutViewOverlay() { return aboutViewOverlay_; }
  PresetViewOverlay& presetViewOverlay() { return presetViewOverlay_; }
  /// The browser's.
  PresetListTableViewController& presetList() {
    return presetViewOverlay_.presetListTableViewController();
  }
  /// The list of presets has been filled once.
  bool isInit() const { return isInit_; }

  /// Fills the browser with the audio unit's presets. Unless the user has just imported a preset,
  /// which stays the one shown, the audio unit's current preset becomes the selected one.
  void initPresetList(platform::AudioUnit* audioUnit, bool isLoadingUserPreset);
  void reloadPresetList();
  /// Selects the preset that the audio unit has now, without loading it again.
  void followCurrentPreset(const platform::AudioUnit& audioUnit);

  /// Before it gets a superview.
  void setPresetViewUseFilters(bool use);
  void setAllowImportAndExport(bool allow);

  /// Closes what is uppermost: the about panel, a dialog of the browser or the browser. False when
  /// nothing was open.
  bool closeUppermost();
  /// A touch beside the browser closes it.
  void handleTouchDown();

  bool pointInside(platform::Point point) const override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;
  void setNeedsDisplay() override;

 private:
  PresetLibrary& library_;
  AboutOverlay aboutViewOverlay_;
  PresetViewOverlay presetViewOverlay_;
  bool isInit_ = false;
};

}  // namespace orvane

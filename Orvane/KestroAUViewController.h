#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "KestroUI/Container.h"
#include "Orvane/AUDesign.h"
#include "Orvane/DSPParameters.h"
#include "Orvane/EnterValueOverlay.h"
#include "Orvane/HeldParameters.h"
#include "Orvane/MakerAddresses.h"
#include "Orvane/MenuBar.h"
#include "Orvane/NoticeView.h"
#include "Orvane/OverlaysView.h"
#include "Orvane/PresetSession.h"
#include "Orvane/SettingsViewController.h"
#include "foundation/RunLoop.h"
#include "platform/AudioUnit.h"
#include "platform/Image.h"
#include "platform/Presentation.h"
#include "toolkit/ViewController.h"

namespace kestroui {
class DoubleFilterView;
}  // namespace kestroui

namespace orvane {

class ControlBindings;
class ParameterConnection;
class PresetManager;

/// A program that embeds the editor and wants to be reached by it: it captures the MIDI messages
/// that move parameters and keeps the bindings. Held weakly. User-interface thread only.
class KestroAUViewControllerDelegate {
 public:
  virtual ~KestroAUViewControllerDelegate() = default;

  /// The user has selected the control of `key`, never null, in learn mode. The next message is to
  /// become its binding; the host answers with the controller's setMap.
  virtual void didSelectMidiMap(const std::shared_ptr<kestroui::ParamKey>& key) = 0;
  /// The user wants the binding of `key`, never null, deleted. The host forgets it and answers with
  /// the controller's removeMap or update.
  virtual void deleteMidiMap(const std::shared_ptr<kestroui::ParamKey>& key) = 0;
  /// Learn mode has begun or ended, whoever did it.
  virtual void midiMappingDidChange() {}
};

/// The editor of a plug-in. A plug-in derives from it, says what its editor shows and how it is
/// proportioned, and gets everything else:
///
///     class SynthViewController : public orvane::KestroAUViewController {
///      public:
///       std::shared_ptr<AUDesign> design() override { return std::make_shared<SynthDesign>(); }
///       std::string productId() override { return "org.example.synth"; }
///     };
///
/// It never owns the audio unit, which may come later than the view and go before it. Whoever
/// shows the editor adds its view, calls appear and disappear, and destroys it at any time.
/// User-interface thread only; the audio unit's parameters may change on any thread.
class KestroAUViewController : public toolkit::ViewController,
                               public platform::DocumentPickerDelegate,
                               private kestroui::ContainerDelegate,
                               private MenuBarDelegate,
                               private EnterValueOverlayDelegate,
                               private PresetViewOverlayDelegate,
                               private PresetLibraryObserver,
                               private PresetSessionDelegate,
                               private AboutOverlayDelegate,
                               private ResponderViewDelegate {
 public:
  KestroAUViewController();
  ~KestroAUViewController() override;

  // What a plug-in overrides

  /// Asked once, when the view is loaded. Fatal in the base class.
  virtual std::shared_ptr<AUDesign> design();
  /// Makes the audio unit for a host, which then owns it and gives it to setAudioUnit. What it
  /// throws reaches the host. The base class makes that of the plug-in's entry; without an entry it
  /// is fatal. Called on a controller that may never be loaded, on any thread.
  virtual std::unique_ptr<platform::AudioUnit> createAudioUnit(
      const platform::AudioComponentDescription& description);
  /// Names the product; must not be empty when the audio unit keeps presets in a store.
  virtual std::string productId() { return {}; }
  /// The menu bar and the about panel show it beside the plug-in's name.
  virtual platform::Image appLogo() { return {}; }
  /// Where the maker is found; asked once, when the view is loaded. The base class knows none.
  virtual MakerAddresses addresses() { return {}; }
  /// Height over width of everything the editor shows.
  virtual double contentRatio() { return 0.75; }
  /// Share of the content's height for the foot strip.
  virtual double footHeightRatio() { return 0; }
  /// The foot strip from left to right; a null entry widens the control before it.
  virtual std::vector<std::shared_ptr<kestroui::ParamKey>> foot_stack() { return {}; }
  /// Whether a control is shown at all; applied by updateVisibility. All are in the base class.
  virtual bool isControlShown(const kestroui::ParamKey& /*key*/) { return true; }
  /// The app group whose container holds the user's presets and favourites; empty for an editor
  /// that keeps none.
  virtual std::string groupBundleId() { return {}; }
  /// The categories that the preset browser offers.
  virtual std::vector<std::string> categories() { return {}; }
  /// Folders to make beside the presets in the cloud.
  virtual std::vector<std::string> extraIcloudResources() { return {}; }
  /// Makes the preset manager and hands it to setPresetManager; for one that is set up otherwise.
  virtual void instantiatePresetManager();
  /// Before the audio unit's state is saved as a new preset, and before a preset is loaded.
  virtual void preSaveAction() {}
  virtual void preLoadAction() {}
  /// The user chose a display mode in the menu bar.
  virtual void displayChanged(int /*index*/) {}
  /// The parameter at this address has a new value: its controls and the sections that it
  /// switches show it.
  virtual void updateParameter(platform::AUParameterAddress address);

  // What a plug-in sets before the view is loaded

  /// The page that is shown first.
  int initPage = 0;
  /// The preset browser has a column of banks beside its list.
  bool presetViewUseFilters = false;
  /// The preset browser offers import and export.
  bool allowImportAndExport = false;
  /// A double tap on a control asks for a value.
  bool doubleTapEnabled = true;
  /// A double tap resets the parameter instead.
  bool doubleTapResetOnly = false;
  bool isStandaloneVersion = false;
  /// Off: while the host changes the size the pages rest, and are laid out once when it is done.
  bool layoutWhileResizing = true;

  // What a plug-in and the program around the editor call

  platform::AudioUnit* audioUnit() const { return audioUnit_.get(); }
  /// When the view is loaded already, connectViewWithAU has to follow.
  void setAudioUnit(platform::AudioUnit* audioUnit);
  /// Builds the controls for the audio unit's parameters and follows their values. May be called
  /// again, for another audio unit or the same.
  void connectViewWithAU();
  /// Null for a known key without a control; an unknown key is fatal.
  std::shared_ptr<kestroui::Container> container(const std::string& key) const;
  /// Hides the controls that isControlShown denies and shows all others.
  void updateVisibility();
  MenuBar& menuBar() { return menuBar_; }
  void randomize();
  /// Sets the parameter that was double-tapped last to its default, and closes the value panel.
  void reset();
  /// Opens a link outside the editor; nothing happens where the program around it cannot.
  void openURL(const std::string& url) override;
  /// Where pickers, share sheets and alerts appear; null where they cannot.
  platform::Presentation* presentation();
  /// Adds a child with its view on top, or removes both.
  void addViewController(toolkit::ViewController& child);
  void removeViewController(toolkit::ViewController& child);

  // Presets

  /// Null until the view is loaded.
  PresetManager* presetManager() const { return presetManager_.get(); }
  void setPresetManager(std::unique_ptr<PresetManager> manager);
  /// Fills the preset browser anew from the audio unit and the store.
  void rebuildPresetList();
  /// Applies a preset to the audio unit; false when it could not be read.
  bool load(const std::shared_ptr<Preset>& preset);
  /// As if the user had chosen it in the browser.
  void selectPreset(const std::shared_ptr<Preset>& preset);
  /// The preset that the browser shows as the current one, or null.
  const std::shared_ptr<Preset>& selectedPreset();
  /// Its name and categories.
  std::string currentPresetName();
  std::vector<std::string> currentPresetCatgories();
  void importPreset();
  void importPresetFile(const std::string& url);
  /// Shares the state as it is now under the name of the chosen preset.
  void exportPreset() override;
  void exportAll();
  /// What the user has picked to import, of which the first file counts.
  void documentPickerAction(const std::vector<std::string>& urls);

  // MIDI learn. The host captures messages and keeps the bindings; the controller shows them and
  // says which control waits. See MidiLearn for a host's side.

  using MidiMessage = kestroui::Container::MidiMessage;
  using MidiMap =
      std::map<std::shared_ptr<kestroui::ParamKey>, MidiMessage, kestroui::ParamKeyLess>;

  platform::Weak<KestroAUViewControllerDelegate> hostDelegate;
  /// Learn mode: controls show their bindings, and a tap selects instead of moving.
  bool midiMappingEnabled() const { return midiMappingEnabled_; }
  void setMidiMappingEnabled(bool enabled);
  /// The key that waits for a message: the one selected last, also after learn mode has ended.
  std::shared_ptr<kestroui::ParamKey> lastMidiMapKey() const { return lastMidiMapKey_; }
  kestroui::Container* lastMidiMapppedContainer() const { return lastMidiMapppedContainer_.get(); }
  /// Shows the binding of a key, which may be one of several in one control; null shows none.
  void setMap(const std::optional<MidiMessage>& map,
              const std::shared_ptr<kestroui::ParamKey>& key);
  /// Shows several bindings; keys that are not among them keep what they show.
  void update(const MidiMap& map);
  void removeMap(const std::shared_ptr<kestroui::ParamKey>& key) { setMap(std::nullopt, key); }
  void removeAllMap();
  /// Sets the parameter of a key as MIDI moves it; see midiParameterValue.
  void setMidiValue(std::uint8_t midiValue, const std::shared_ptr<kestroui::ParamKey>& key);

  // For the parts of the library, its tool and its tests. A plug-in needs none of these.

  /// The entry's; set by the entry.
  std::function<std::unique_ptr<platform::AudioUnit>()> makeAudioUnit;
  SettingsViewController& settingsViewController() { return settingsViewController_; }
  EnterValueOverlay& enterValueOverlay() { return enterValueOverlay_; }
  NoticeView& noticeView() { return noticeView_; }
  OverlaysView& overlaysView() { return overlaysView_; }
  PresetSession& presetSession() { return presetSession_; }
  PresetLibrary& presetLibrary() { return presetSession_.library(); }
  DSPParameters& parameters() { return parameters_; }
  ControlCollection& controls() { return *controls_; }
  const std::unordered_map<platform::AUParameterAddress, std::string>& parameterKeyMap() const {
    return parameters_.parameterMap();
  }
  std::shared_ptr<kestroui::ParamKey> doubleTappedKey() const { return doubleTappedKey_; }
  /// Null while off screen.
  const foundation::DisplayLink* displayLink() const { return displayLink_.get(); }
  /// The host is changing the size; noticed at most 0.1 s late.
  bool isResizing() const { return resizing_; }
  /// Frame of the content below the menu bar at the last layout.
  const platform::Rect& mainContentFrame() const { return mainContentFrame_; }
  /// Set when a preset was imported before there was a list of presets; nothing clears it.
  bool isLoadingUserPreset = false;

  /// Builds, binds and registers the control of each key, then lays the content out.
  void setupControls(const std::vector<std::shared_ptr<kestroui::ParamKey>>& keys);
  /// A control has a new value: sets its parameters. Any sender but a container is ignored.
  void handleValueChanged(toolkit::Control& sender);
  /// Shows the values of six parameters on a double filter view, and the response that the audio
  /// unit computes for them. A key without a parameter is left out.
  void updateDoubleFilterViewFrequencyAndMagnitudes(kestroui::DoubleFilterView& view,
                                                    const std::string& lowPassFrequency,
                                                    const std::string& lowPassResonance,
                                                    const std::string& hiPassFrequency,
                                                    const std::string& hiPassResonance,
                                                    const std::string& lowPassGain,
                                                    const std::string& hiPassGain);
  /// Shows live values, on the page that is shown and wherever else a plug-in has put a control;
  /// called once per display frame while on screen.
  void updateUI();
  void setPresetName(const std::string& name);
  /// A file has become a preset, or was one already: it is chosen.
  void presetWasImported(const std::shared_ptr<UserPreset>& preset);
  /// The store could not do what the user wanted; one sentence with the reason.
  void presetStoreDidFail(const std::string& sentence);
  void documentPickerDidPick(const std::vector<std::string>& paths) override;

 protected:
  /// Escape closes an overlay, else it ends learn mode.
  bool keyPressed(const platform::KeyEvent& event) override;
  void viewDidLoad() override;
  void viewWillLayoutSubviews() override;
  void viewDidLayoutSubviews() override;
  void viewDidAppear() override;
  void viewDidDisappear() override;

 private:
  // What its parts report

  void didDoubleTap(const std::shared_ptr<kestroui::ParamKey>& key) override;
  void didBeginGesture(kestroui::Container& container,
                       const std::vector<std::shared_ptr<kestroui::ParamKey>>& keys) override;
  void didEndGesture(kestroui::Container& container,
                     const std::vector<std::shared_ptr<kestroui::ParamKey>>& keys) override;
  void didSelectMidiMap(const std::shared_ptr<kestroui::ParamKey>& key,
                        kestroui::Container* container) override;
  void wantToDeleteMidiMap(const std::shared_ptr<kestroui::ParamKey>& key) override;
  void textFieldOverlayDidConfirm(TextFieldOverlay& overlay,
                                  const std::optional<std::string>& text) override;
  void enterValueOverlayDidReset() override { reset(); }
  void enterValueOverlayDidChoose(std::size_t index) override;
  void presetSelected(const std::shared_ptr<Preset>& preset) override;
  std::optional<std::string> saveNewPreset(
      const std::string& name, const std::vector<std::string>& presetCategories) override;
  std::optional<std::string> renamePreset(
      const UserPreset& preset, const std::string& name,
      const std::vector<std::string>& presetCategories) override;
  void savePreset(const UserPreset& preset) override;
  void deletePresets(const std::vector<std::shared_ptr<UserPreset>>& presets) override;
  void setPresetCategories(const std::vector<PresetCategories>& categories) override;
  void exportPresets(const std::vector<std::shared_ptr<UserPreset>>& presets) override;
  bool undoPresetChange() override;
  void presetAuditioned(const std::shared_ptr<Preset>& preset) override;
  bool endAudition(bool keeps) override;
  void presetSessionWillLoad() override { preLoadAction(); }
  void presetSessionWillSave() override { preSaveAction(); }
  void presetSessionDidLoad() override;
  void presetSessionCanUndo(const std::string& sentence) override;
  void importPresets() override { importPreset(); }
  void presetViewOverlayDidHide() override {}
  void presetViewOverlayDidRefuse(const std::string& sentence) override {
    noticeView_.show(sentence);
  }
  /// The menu bar shows what the library has.
  void presetLibraryDidChange(Change change) override;
  void menuBarDidRequestRandomize() override { randomize(); }
  void menuBarDidChangeDisplay(int index) override { displayChanged(index); }
  void menuBarOpenURL(const std::string& url) override { openURL(url); }
  std::vector<PresetAction> menuBarPresetActions() override;
  void openSaveNewPanel();
  void aboutOverlayRequestReview() override;
  bool aboutOverlayCanRequestReview() override;
  void aboutOverlayHiddenChanged() override { menuBar_.setNeedsDisplay(); }

  std::vector<std::shared_ptr<kestroui::ParamKey>> keysToShow() const;
  /// A value that the handle under the last double tap moves.
  struct TappedValue {
    std::shared_ptr<kestroui::ParamKey> key;
    /// The key of its parameter, which some kinds call otherwise.
    std::string parameter;
    std::string name;
  };
  std::vector<TappedValue> tappedValues(const std::shared_ptr<kestroui::ParamKey>& key) const;
  /// That of doubleTappedKey; null without a key.
  const TappedValue* doubleTappedValue() const;
  void updateAllParameters();
  void parameterDidChange(platform::AUParameterAddress address);
  void updateDoubleFilters(platform::AUParameterAddress address);
  /// The audio unit has gone: nothing is shown as modulated any more.
  void forgetLiveValues();
  /// What those of a container's keys drive.
  std::vector<platform::AUParameter*> parametersOf(
      const kestroui::Container& container,
      const std::vector<std::shared_ptr<kestroui::ParamKey>>& keys) const;
  /// One change by the user with a gesture around it; false when the editor is gone after it.
  bool inGesture(platform::AUParameter& parameter, const std::function<void()>& change);
  void applyLabelScale();
  /// Whatever a finger holds is let go: no button stays pressed when nobody can lift the finger.
  void letGo();
  void followHostFrame();
  void setUpOverlays();
  void tellAudioUnitOfUI(bool visible);
  void loadPresetStorage();
  void followAudioUnitWithPresets();
  platform::Application* application();
  /// In every place that shows the key's parameter.
  void markMidiMap(const kestroui::ParamKey& key, bool selected);

  platform::Weak<platform::AudioUnit> audioUnit_;
  DSPParameters parameters_;
  std::shared_ptr<ControlCollection> controls_;
  /// Shared with the registry, which tells it of changes.
  std::shared_ptr<ControlBindings> bindings_;
  SettingsViewController settingsViewController_;
  MenuBar menuBar_;
  PresetSession presetSession_;
  OverlaysView overlaysView_{presetSession_.library()};
  EnterValueOverlay enterValueOverlay_;
  NoticeView noticeView_;
  std::shared_ptr<kestroui::ParamKey> doubleTappedKey_;
  std::vector<TappedValue> tappedValues_;
  bool midiMappingEnabled_ = false;
  /// The bindings that controls show, also those that are made later.
  MidiMap midiMap_;
  std::shared_ptr<kestroui::ParamKey> lastMidiMapKey_;
  platform::Weak<kestroui::Container> lastMidiMapppedContainer_;
  HeldParameters heldParameters_;
  std::unique_ptr<ParameterConnection> connection_;
  std::unique_ptr<PresetManager> presetManager_;

  std::unique_ptr<foundation::DisplayLink> displayLink_;
  foundation::Timer checkTimer_;
  platform::Rect storedRect_;
  platform::Rect mainContentFrame_;
  double labelScale_ = 1;
  bool resizing_ = false;
  /// The audio unit that was told that an editor is on screen.
  platform::Weak<platform::AudioUnit> shownUnit_;
};

}  // namespace orvane

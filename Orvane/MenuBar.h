#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "KestroUI/ButtonGroups.h"
#include "KestroUI/KestroButtons.h"
#include "KestroUI/ListPopup.h"
#include "Orvane/OverlaysView.h"
#include "platform/URLSession.h"
#include "toolkit/ImageView.h"
#include "toolkit/View.h"

namespace orvane {

/// What the menu bar asks of its owner. Held weakly. User-interface thread only.
class MenuBarDelegate {
 public:
  virtual ~MenuBarDelegate() = default;

  virtual void menuBarDidRequestRandomize() = 0;
  /// The user chose a display mode.
  virtual void menuBarDidChangeDisplay(int index) = 0;
  virtual void menuBarOpenURL(const std::string& url) = 0;

  struct PresetAction {
    std::string title;
    std::function<void()> act;
  };
  /// What can be done with the preset just now, for the menu of its name.
  virtual std::vector<PresetAction> menuBarPresetActions() { return {}; }
};

/// The strip across the top of the editor: the plug-in's logo and name, which open the about panel,
/// the current preset between the arrows that step through the presets, randomize, the display modes
/// if there are any, help once its address is known, and the maker's logo. The preset's name opens
/// and closes the browser, and has a menu of its own. It knows nothing of the plug-in: it shows the
/// overlays, and asks its delegate for everything else. User-interface thread only.
class MenuBar : public toolkit::View, public kestroui::ListPopupOwner {
 public:
  MenuBar();

  platform::Weak<MenuBarDelegate> delegate;
  /// What the logo and the preset's name open and the arrows step through.
  platform::Weak<OverlaysView> overlaysView;

  // Before it gets a superview

  /// Names the product to the help server.
  std::string productId;
  /// Begins the address of the help server; nobody is asked while it is empty.
  std::string helpHost;

  const platform::Image& appLogo() const { return appLogo_; }
  void setAppLogo(platform::Image logo);
  /// Where the help page is: what the server has answered, empty until then.
  const std::string& helpPath() const { return helpPath_; }
  const std::string& presetName() const { return presetNameLabel_.title(); }
  /// Without a name the button shows its picture.
  void setPresetName(std::string name);
  /// Marks the name while the sound is not what the preset has stored.
  bool isPresetModified() const { return presetModified_; }
  void setPresetModified(bool modified);
  /// Without presets there is no name, and nothing to do with one.
  void setHasPresets(bool hasPresets);
  /// Without several presets there are no arrows.
  void setCanStepPresets(bool canStep);

  /// Set before the displays: their buttons show waveforms where they name one.
  bool areDisplaysIconWaveforms = false;
  const std::vector<std::string>& displays() const { return displays_; }
  /// Titles of the display modes. The selector is made by the first call and keeps its titles.
  void setDisplays(std::vector<std::string> displays);

  kestroui::ImageButton& aboutButton() { return aboutButton_; }
  kestroui::SimpleButton& presetNameLabel() { return presetNameLabel_; }
  /// At the end of the name: opens the menu of what can be done with the preset.
  kestroui::ArrowButton& presetMenuButton() { return presetMenuButton_; }
  kestroui::ArrowButton& arrowLeft() { return arrowLeft_; }
  kestroui::ArrowButton& arrowRight() { return arrowRight_; }
  kestroui::DiceButton& randomizeButton() { return randomizeButton_; }
  /// In the bar only once the help page's address is known.
  kestroui::ImageButton& helpButton() { return helpButton_; }
  toolkit::ImageView& logoView() { return logoView_; }
  /// Null until displays are set.
  kestroui::RadioButtons* displayMode() const { return displayMode_.get(); }

  void onAboutButton();
  void onPresetButton();
  void onPresetMenu();
  void onPresetArrow(toolkit::Control& sender);
  void onRandomize();
  void onDisplayChanged();
  void onHelpClicked();
  /// Shows the logo, or what closes the about panel while that is open.
  void updateAboutImage();

  const std::vector<std::string>& popupEntries() const override { return presetActionTitles_; }
  void popupDidChoose(int index) override;
  void popupDidCancel() override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  /// Once in its life.
  void askForHelp();
  void showHelp(std::string path);

  bool presetModified_ = false;
  toolkit::Layer modifiedDot_;
  kestroui::ImageButton aboutButton_;
  kestroui::SimpleButton presetNameLabel_;
  kestroui::ArrowButton presetMenuButton_{kestroui::ArrowButton::Direction::down};
  std::vector<MenuBarDelegate::PresetAction> presetActions_;
  std::vector<std::string> presetActionTitles_;
  std::unique_ptr<kestroui::ListPopup> presetMenu_;
  toolkit::ImageView logoView_;
  kestroui::ArrowButton arrowLeft_{kestroui::ArrowButton::Direction::left};
  kestroui::ArrowButton arrowRight_{kestroui::ArrowButton::Direction::right};
  kestroui::DiceButton randomizeButton_;
  std::vector<std::string> displays_;
  std::unique_ptr<kestroui::RadioButtons> displayMode_;
  kestroui::ImageButton helpButton_;
  platform::Image appLogo_;
  const platform::Image presetImage_, backImage_, kestroImage_, helpImage_;
  std::string helpPath_;
  std::unique_ptr<platform::URLSessionDataTask> helpTask_;
};

}  // namespace orvane

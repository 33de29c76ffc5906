#include "Orvane/MenuBar.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Icons.h"
#include "KestroUI/Theme.h"
#include "Orvane/PluginInfo.h"
#include "Orvane/WebAddress.h"
#include "foundation/DispatchQueue.h"
#include "foundation/SharedURLSession.h"
#include "foundation/UnicodeText.h"

namespace orvane {

using toolkit::ControlEvent;
namespace Theme = kestroui::Theme;

namespace {

constexpr const char* helpEndpoint = "/LICENSES/help_url.php?product_identifier=";

/// The help page's address, or an empty text for any answer that holds none.
std::string helpPathOf(const platform::URLSession::Answer& answer) {
  const bool isThere = answer.error.empty() && answer.statusCode >= 200 && answer.statusCode < 300;
  std::string text(answer.data.begin(), answer.data.end());
  return isThere && foundation::isUtf8(text) ? text : std::string();
}

/// Without the line end that servers like to send.
std::string trimmed(std::string text) {
  const char* blanks = " \t\r\n";
  text.erase(0, std::min(text.find_first_not_of(blanks), text.size()));
  text.erase(text.find_last_not_of(blanks) + 1);
  return text;
}

}  // namespace

MenuBar::MenuBar()
    : presetImage_(kestroui::Icons::image("presets.png")),
      backImage_(kestroui::Icons::image("smallCross.png")),
      kestroImage_(kestroui::Icons::image("kestro_centered.png")),
      helpImage_(kestroui::Icons::image("help.png")) {
  setBackgroundColor(Theme::panel);
  logoView_.setImage(kestroImage_);
  logoView_.setTintColor(Theme::front);
  presetNameLabel_.setBackgroundColor(platform::Color::clear());
  presetNameLabel_.setTitleColor(Theme::white);
  presetNameLabel_.layer().setBorderWidth(1.0);
  presetNameLabel_.layer().setBorderColor(Theme::white);
  for (kestroui::ArrowButton* arrow : {&arrowLeft_, &arrowRight_, &presetMenuButton_}) {
    arrow->setTitleColor(Theme::white);
    arrow->setAccentColor(Theme::white);
  }
  helpButton_.setImage(helpImage_);
  helpButton_.setTitleColor(Theme::white);
  aboutButton_.setTitleColor(Theme::white);
  arrowLeft_.setAccessibilityLabel("Previous preset");
  arrowRight_.setAccessibilityLabel("Next preset");
  presetMenuButton_.setAccessibilityLabel("Preset menu");
  randomizeButton_.setAccessibilityLabel("Randomize");
  helpButton_.setAccessibilityLabel("Help");
  modifiedDot_.setBackgroundColor(Theme::accent);
  setPresetName({});
  setCanStepPresets(false);
  setHasPresets(false);
}

void MenuBar::setAppLogo(platform::Image logo) {
  appLogo_ = std::move(logo);
  updateAboutImage();
}

void MenuBar::updateAboutImage() {
  auto* overlays = overlaysView.get();
  if (!overlays) return;
  const bool isOpen = !overlays->aboutViewOverlay().isHidden();
  aboutButton_.setImage(isOpen ? backImage_ : appLogo_);
  aboutButton_.setAccessibilityLabel(isOpen ? "Close" : "");
}

void MenuBar::setPresetName(std::string name) {
  presetNameLabel_.setImage(name.empty() ? presetImage_ : platform::Image());
  presetNameLabel_.setAccessibilityLabel(name.empty() ? "Presets" : "");
  presetNameLabel_.setTitle(std::move(name));
}

void MenuBar::setPresetModified(bool modified) {
  if (modified == presetModified_) return;
  presetModified_ = modified;
  presetNameLabel_.setAccessibilityLabel(modified ? presetName() + ", changed" : "");
  setNeedsDisplay();
}

void MenuBar::setHasPresets(bool hasPresets) {
  presetNameLabel_.setHidden(!hasPresets);
  presetMenuButton_.setHidden(!hasPresets);
}

void MenuBar::setCanStepPresets(bool canStep) {
  arrowLeft_.setHidden(!canStep);
  arrowRight_.setHidden(!canStep);
}

void MenuBar::setDisplays(std::vector<std::string> displays) {
  displays_ = std::move(displays);
  if (displayMode_ || displays_.empty()) return;
  displayMode_ = std::make_unique<kestroui::RadioButtons>(displays_, areDisplaysIconWaveforms);
  displayMode_->setAccentColor(Theme::white);
  displayMode_->setAccessibilityLabel("Display");
  displayMode_->addTarget<&MenuBar::onDisplayChanged>(*this, ControlEvent::valueChanged);
  addSubview(*displayMode_);
  setNeedsDisplay();
}

void MenuBar::didMoveToSuperview() {
  if (!superview()) return;
  for (View* view :
       std::initializer_list<View*>{&aboutButton_, &presetNameLabel_, &logoView_, &arrowLeft_,
                                    &arrowRight_, &randomizeButton_, &presetMenuButton_})
    addSubview(*view);
  layer().addSublayer(modifiedDot_);
  aboutButton_.addTarget<&MenuBar::onAboutButton>(*this, ControlEvent::touchDown);
  presetNameLabel_.addTarget<&MenuBar::onPresetButton>(*this, ControlEvent::touchDown);
  presetMenuButton_.addTarget<&MenuBar::onPresetMenu>(*this, ControlEvent::touchDown);
  randomizeButton_.addTarget<&MenuBar::onRandomize>(*this, ControlEvent::touchDown);
  arrowLeft_.addTarget<&MenuBar::onPresetArrow>(*this, ControlEvent::touchDown);
  arrowRight_.addTarget<&MenuBar::onPresetArrow>(*this, ControlEvent::touchDown);
  askForHelp();
}

void MenuBar::askForHelp() {
  if (helpTask_ || productId.empty() || helpHost.empty()) return;
  const std::string url = helpHost + helpEndpoint + productId;
  if (!WebAddress::isURL(url)) return;
  helpTask_ = foundation::SharedURLSession::current().dataTask(
      url, [self = platform::Weak<MenuBar>(this)](const platform::URLSession::Answer& answer) {
        std::string path = helpPathOf(answer);
        if (path.empty()) return;
        foundation::DispatchQueue::mainAsync([self, path = std::move(path)]() mutable {
          if (self) self->showHelp(std::move(path));
        });
      });
  helpTask_->resume();
}

void MenuBar::showHelp(std::string path) {
  helpPath_ = std::move(path);
  addSubview(helpButton_);
  helpButton_.addTarget<&MenuBar::onHelpClicked>(*this, ControlEvent::touchDown);
  setNeedsDisplay();
}

void MenuBar::draw(const platform::Rect& rect) {
  View::draw(rect);
  const double width = bounds().width, height = bounds().height;

  // A bar that is a tenth of a large window is high: its texts grow with it.
  const double textSize = std::clamp(Theme::titleFont.pointSize * kestroui::textScaleIn(*this),
                                     height * 0.22, height * 0.32);
  const double nameWidth = width / 5;
  const platform::Rect name =
      platform::Rect{width * 0.5 - nameWidth * 0.5, 0, nameWidth, height}.inset(1.0, height * 0.14);
  presetNameLabel_.setFrame(name);
  presetNameLabel_.layer().setCornerRadius(std::max(0.0, name.height * 0.5 - 2.5));
  presetNameLabel_.setFont(Theme::regularFont.withSize(textSize));

  const double menuSide = name.height * 0.8;
  presetMenuButton_.setFrame(
      {name.maxX() - menuSide - name.height * 0.1, name.midY() - menuSide / 2, menuSide, menuSide});
  presetNameLabel_.setTitleMargin(name.height * 0.8);

  const double dot = std::max(4.0, name.height * 0.16);
  modifiedDot_.setFrame({name.x + name.height * 0.36, name.midY() - dot / 2, dot, dot});
  modifiedDot_.setCornerRadius(dot / 2);
  modifiedDot_.setHidden(!presetModified_ || presetName().empty());

  const double arrowWidth = height * 0.6, arrowGap = 4.0;
  arrowLeft_.setFrame({name.x - arrowWidth - arrowGap, 0, arrowWidth, height});
  arrowRight_.setFrame({name.maxX() + arrowGap, 0, arrowWidth, height});
  randomizeButton_.setFrame({arrowRight_.frame().maxX() + 20.0, 0, height, height});
  aboutButton_.setFrame({1.0, 0, std::max(0.0, arrowLeft_.frame().x), height});
  aboutButton_.setFont(Theme::titleFont.withSize(textSize * 1.15));
  aboutButton_.setTitle(PluginInfo::appName() + " v" + PluginInfo::completeVersion());
  updateAboutImage();
  logoView_.setFrame({width - height - 1.0, 0, height, height});
  const double helpSide = height * 0.5;
  helpButton_.setFrame({width - 2 * height, (height - helpSide) * 0.5, helpSide, helpSide});

  if (!displayMode_) return;
  const double left = randomizeButton_.frame().maxX();
  const double atHelp = helpButton_.frame().x;
  // In a bar that is too narrow for both, help lies on it.
  const bool givesWay = helpButton_.superview() && atHelp - left >= height;
  const double right = givesWay ? atHelp : logoView_.frame().x;
  const double room = right - left;
  displayMode_->setFaceScale(height / 56);
  displayMode_->setFrame(platform::Rect{left, 0, room, height}.inset(room * 0.07, 1.0));
  displayMode_->setNeedsDisplay();
}

void MenuBar::onAboutButton() {
  const platform::Weak<MenuBar> self = this;
  if (auto* overlays = overlaysView.get()) {
    AboutOverlay& about = overlays->aboutViewOverlay();
    overlays->bringSubviewToFront(about);
    about.setHidden(!about.isHidden());
    overlays->presetViewOverlay().setHidden(true);
    updateAboutImage();
    aboutButton_.sendActions(ControlEvent::touchUpInside);
    if (!self) return;
  }
  bringSubviewToFront(aboutButton_);
  if (overlaysView) overlaysView->setNeedsDisplay();
}

void MenuBar::onPresetButton() {
  auto* overlays = overlaysView.get();
  if (!overlays) return;
  PresetViewOverlay& browser = overlays->presetViewOverlay();
  overlays->bringSubviewToFront(browser);
  if (browser.isHidden() || !browser.closeDialog()) browser.setHidden(!browser.isHidden());
  overlays->aboutViewOverlay().setHidden(true);
  updateAboutImage();
  overlays->setNeedsDisplay();
}

void MenuBar::onPresetMenu() {
  auto* owner = delegate.get();
  auto* overlays = overlaysView.get();
  // As with the arrows.
  if (!owner || (overlays && overlays->presetViewOverlay().isDialogOpen())) return;
  presetActions_ = owner->menuBarPresetActions();
  presetActionTitles_.clear();
  for (const auto& action : presetActions_) presetActionTitles_.push_back(action.title);
  if (presetActions_.empty()) return onPresetButton();
  // Its texts are about as large as the name.
  const double scale =
      std::max(kestroui::textScaleIn(*this), presetNameLabel_.bounds().height / 50);
  presetMenu_ = kestroui::ListPopup::open(*this, presetNameLabel_, {Theme::accent, scale});
}

void MenuBar::popupDidCancel() { kestroui::ListPopup::close(presetMenu_); }

void MenuBar::popupDidChoose(int index) {
  const auto chosen = presetActions_.at(static_cast<std::size_t>(index)).act;
  kestroui::ListPopup::close(presetMenu_);
  chosen();
}

void MenuBar::onPresetArrow(toolkit::Control& sender) {
  auto* overlays = overlaysView.get();
  // What a dialog asks about stays what is loaded.
  if (!overlays || overlays->presetViewOverlay().isDialogOpen()) return;
  overlays->presetList().selectNext(&sender == &arrowLeft_);
}

void MenuBar::onRandomize() {
  if (auto* owner = delegate.get()) owner->menuBarDidRequestRandomize();
}

void MenuBar::onHelpClicked() {
  const std::string url = trimmed(helpPath_);
  auto* owner = delegate.get();
  if (owner && WebAddress::isURL(url)) owner->menuBarOpenURL(url);
}

void MenuBar::onDisplayChanged() {
  if (auto* owner = delegate.get()) owner->menuBarDidChangeDisplay(displayMode_->selectedIndex());
}

}  // namespace orvane

#include "Orvane/MenuBar.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Icons.h"
#include "KestroUI/TextScale.h"
#include "KestroUI/Theme.h"

namespace orvane {

using platform::ControlEvent;
namespace Theme = kestroui::Theme;

MenuBar::MenuBar() {
  setBackgroundColor(Theme::panel);
  logoView_.setImage(kestroui::Icons::image("kestro_centered"));
  logoView_.setTintColor(Theme::front);
  presetNameLabel_.setBackgroundColor(platform::Color::clear());
  presetNameLabel_.setTitleColor(Theme::white);
  presetNameLabel_.layer().setBorderWidth(1.0);
  presetNameLabel_.layer().setBorderColor(Theme::white);
  for (kestroui::ArrowButton* arrow : {&arrowLeft_, &arrowRight_}) {
    arrow->setTitleColor(Theme::white);
    arrow->setAccentColor(Theme::white);
  }
  // It shows the plug-in, and is not pressed.
  aboutButton_.setUserInteractionEnabled(false);
  arrowLeft_.setAccessibilityLabel("Previous preset");
  arrowRight_.setAccessibilityLabel("Next preset");
  randomizeButton_.setAccessibilityLabel("Randomize");
  setCanStepPresets(false);
  presetNameLabel_.setHidden(true);
}

void MenuBar::setPresetName(std::string name) {
  presetNameLabel_.setImage(name.empty() ? kestroui::Icons::image("presets") : platform::Image());
  presetNameLabel_.setTitle(std::move(name));
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
  for (View* view : std::initializer_list<View*>{&aboutButton_, &presetNameLabel_, &logoView_,
                                                 &arrowLeft_, &arrowRight_, &randomizeButton_})
    addSubview(*view);
  presetNameLabel_.addTarget<&MenuBar::onPresetButton>(*this, ControlEvent::touchDown);
  randomizeButton_.addTarget<&MenuBar::onRandomize>(*this, ControlEvent::touchDown);
  arrowLeft_.addTarget<&MenuBar::onPresetArrow>(*this, ControlEvent::touchDown);
  arrowRight_.addTarget<&MenuBar::onPresetArrow>(*this, ControlEvent::touchDown);
}

void MenuBar::draw(const platform::Rect& rect) {
  View::draw(rect);
  const double width = bounds().width, height = bounds().height;

  const double scale = kestroui::textScaleIn(*this);
  const double nameWidth = width / 5;
  const platform::Rect name =
      platform::Rect{width * 0.5 - nameWidth * 0.5, 0, nameWidth, height}.inset(1.0, height * 0.14);
  presetNameLabel_.setFrame(name);
  presetNameLabel_.layer().setCornerRadius(std::max(0.0, name.height * 0.5 - 2.5));
  presetNameLabel_.setFont(
      Theme::regularFont.withSize(std::min(Theme::titleFont.pointSize * scale, height * 0.32)));

  const double arrowWidth = height * 0.6, arrowGap = 4.0;
  arrowLeft_.setFrame({name.x - arrowWidth - arrowGap, 0, arrowWidth, height});
  arrowRight_.setFrame({name.maxX() + arrowGap, 0, arrowWidth, height});
  randomizeButton_.setFrame({arrowRight_.frame().maxX() + 20.0, 0, height, height});
  aboutButton_.setFrame({1.0, 0, std::max(0.0, arrowLeft_.frame().x), height});
  aboutButton_.setFont(
      Theme::titleFont.withSize(std::min(Theme::titleFont.pointSize * 1.2 * scale, height * 0.36)));
  logoView_.setFrame({width - height - 1.0, 0, height, height});

  if (!displayMode_) return;
  const double left = randomizeButton_.frame().maxX();
  const double room = logoView_.frame().x - left;
  displayMode_->setFrame(platform::Rect{left, 0, room, height}.inset(room * 0.07, 1.0));
  displayMode_->setNeedsDisplay();
}

void MenuBar::onPresetButton() {
  auto* overlays = overlaysView.get();
  if (!overlays) return;
  PresetViewOverlay& browser = overlays->presetViewOverlay();
  overlays->bringSubviewToFront(browser);
  if (browser.isHidden() || !browser.closeDialog()) browser.setHidden(!browser.isHidden());
  overlays->setNeedsDisplay();
}

void MenuBar::onPresetArrow(platform::Control& sender) {
  if (auto* overlays = overlaysView.get())
    overlays->presetViewOverlay().presetListTableViewController().selectNext(&sender ==
                                                                             &arrowLeft_);
}

void MenuBar::onRandomize() {
  if (auto* owner = delegate.get()) owner->menuBarDidRequestRandomize();
}

void MenuBar::onDisplayChanged() {
  if (auto* owner = delegate.get()) owner->menuBarDidChangeDisplay(displayMode_->selectedIndex());
}

}  // namespace orvane

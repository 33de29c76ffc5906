#include "Orvane/EnterValueOverlay.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/OverlayStyle.h"

namespace orvane {

using platform::Rect;
using toolkit::ControlEvent;
namespace Theme = kestroui::Theme;

EnterValueOverlay::EnterValueOverlay() {
  outside_.setBackgroundColor(OverlayStyle::lightBackdropColor());
  OverlayStyle::applyPanel(back_);
  nameLabel_.setTextAlignment(platform::TextAlignment::centre);
  nameLabel_.setTextColor(Theme::text);
  nameButtons_.setAccentColor(Theme::accent);
  nameButtons_.setAccessibilityLabel("Value");
  nameButtons_.setHidden(true);
  textField().setLeftInset(3);
}

void EnterValueOverlay::setEntries(std::vector<Entry> entries, std::size_t chosen) {
  entries_ = std::move(entries);
  std::vector<std::string> names;
  for (const Entry& entry : entries_) names.push_back(entry.name);
  const bool isOne = names.size() < 2;
  nameLabel_.setText(names.empty() ? std::string() : names[chosen]);
  nameLabel_.setHidden(!isOne);
  nameButtons_.setHidden(isOne);
  nameButtons_.setTitles(isOne ? std::vector<std::string>() : std::move(names));
  nameButtons_.setSelectedIndex(static_cast<int>(chosen));
  showPresent(chosen);
}

void EnterValueOverlay::showPresent(std::size_t index) {
  const Entry entry = index < entries_.size() ? entries_[index] : Entry{};
  textField().setPlaceholder(entry.present, Theme::textDim);
  textField().setAccessibilityLabel(
      entry.name.empty() ? titleText()
                         : entry.name + (entry.present.empty() ? "" : ", now " + entry.present));
}

void EnterValueOverlay::onChosen() {
  const auto index = static_cast<std::size_t>(nameButtons_.selectedIndex());
  // What was typed was meant for another one.
  textField().setText({});
  showPresent(index);
  textField().becomeFirstResponder();
  if (auto* owner = dynamic_cast<EnterValueOverlayDelegate*>(delegate.get()))
    owner->enterValueOverlayDidChoose(index);
}

void EnterValueOverlay::didMoveToSuperview() {
  if (!superview()) return;
  addSubview(outside_);
  addSubview(face_);
  face_.layer().addSublayer(back_);
  addSubview(nameLabel_);
  addSubview(nameButtons_);
  TextFieldOverlay::didMoveToSuperview();
  showPresent(static_cast<std::size_t>(nameButtons_.selectedIndex()));
  addSubview(resetButton_);
  nameButtons_.addTarget<&EnterValueOverlay::onChosen>(*this, ControlEvent::valueChanged);
  resetButton_.addTarget<&EnterValueOverlay::handleTouchDownReset>(*this, ControlEvent::touchDown);
  outside_.addTarget<&EnterValueOverlay::handleTouchDownOutside>(*this, ControlEvent::touchDown);
}

void EnterValueOverlay::handleTouchDownReset() {
  if (auto* owner = dynamic_cast<EnterValueOverlayDelegate*>(delegate.get()))
    owner->enterValueOverlayDidReset();
}

void EnterValueOverlay::handleTouchDownOutside() { setHidden(true); }

bool EnterValueOverlay::keyPressed(const platform::KeyEvent& event) {
  const bool steps = event.key == platform::Key::up || event.key == platform::Key::down;
  if (steps && !nameButtons_.isHidden()) return nameButtons_.keyPressed(event);
  return TextFieldOverlay::keyPressed(event);
}

void EnterValueOverlay::draw(const Rect&) {
  const double width = bounds().width, height = bounds().height;
  outside_.setFrame(bounds());
  const Rect panel{0.225 * width, 0.225 * height, 0.55 * width, 0.55 * height};
  face_.setFrame(panel);
  back_.setFrame(face_.bounds());
  const double content = 0.5 * width, x = (width - content) / 2;
  const double fieldWidth = 0.27 * width, fieldHeight = 0.1 * height;
  const double y = height / 2 - fieldHeight / 2;
  const Rect button{x + fieldWidth + 3, y, (content - fieldWidth) / 2 - 6, fieldHeight};
  layoutEntry({x, y, fieldWidth, fieldHeight}, button);
  titleLabel().setFont(Theme::regularFont.withSize(titleLabel().font().pointSize));
  resetButton_.setFont(okButton().font());
  resetButton_.setFrame({button.maxX() + 3, y, button.width, fieldHeight});

  // Between the upper edge and the title.
  const double gap = 0.02 * height;
  const Rect heading{x, panel.y + gap, content, titleLabel().frame().y - panel.y - 2 * gap};
  nameLabel_.setFont(Theme::titleFont.withSize(titleLabel().font().pointSize * 1.25));
  nameLabel_.setFrame(heading);
  nameButtons_.setFaceScale(titleLabel().font().pointSize / Theme::smallTitleFont.pointSize);
  nameButtons_.setFrame(heading);
}

}  // namespace orvane

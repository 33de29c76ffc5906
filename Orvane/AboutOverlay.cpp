#include "Orvane/AboutOverlay.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "KestroUI/Icons.h"
#include "KestroUI/Theme.h"
#include "Orvane/KestroAUViewController.h"
#include "Orvane/OverlayStyle.h"
#include "Orvane/PluginInfo.h"
#include "Orvane/WebAddress.h"
#include "toolkit/Window.h"

namespace orvane {

using platform::Rect;
using toolkit::ControlEvent;
namespace Theme = kestroui::Theme;

namespace {

/// Up to this height in points the panel's texts grow with it, beyond it less than it.
constexpr double ordinaryHeight = 600;

}  // namespace

AboutOverlay::AboutOverlay() {
  background_.setBackgroundColor(OverlayStyle::backdropColor());
  OverlayStyle::applyPanel(panel_);
  rule_.setBackgroundColor(Theme::line);
  title_.setTextColor(Theme::text);
  version_.setTextColor(Theme::textDim);
  thanks_.setText(thxText_);
  thanks_.setTextColor(Theme::lightGrey);
  thanks_.setTextAlignment(platform::TextAlignment::centre);
  link_.setTextAlignment(platform::TextAlignment::centre);
  link_.tapped = [this] { tapWebsiteLink(); };
  like_.setTitle("Like ");
  like_.setImage(kestroui::Icons::image("like.png"));
  contactUs_.setTitle("Contact us");
  contactUs_.setImage(kestroui::Icons::image("contact.png"));
  get_all_apps_.setTitle("Get all KESTRO Apps!");
  get_all_apps_.setImage(kestroui::Icons::image("cloud.png"));
  for (kestroui::SimpleButton* button : {&like_, &contactUs_, &get_all_apps_})
    button->setTitleColor(Theme::text);
}

void AboutOverlay::setAddresses(MakerAddresses addresses) {
  addresses_ = std::move(addresses);
  social_.setAddresses(addresses_);
  link_.setText(WebAddress::shown(addresses_.website));
  setNeedsDisplay();
}

void AboutOverlay::setAppLogo(platform::Image logo) {
  appLogo_.setImage(std::move(logo));
  setNeedsDisplay();
}

void AboutOverlay::didMoveToSuperview() {
  if (!superview()) return;
  social_.delegate = delegate;
  for (toolkit::Layer* part : {&background_, &panel_, &rule_}) layer().addSublayer(*part);
  for (View* view : std::initializer_list<View*>{&appLogo_, &title_, &version_, &thanks_, &like_,
                                                 &contactUs_, &get_all_apps_, &social_, &link_})
    addSubview(*view);
  like_.addTarget<&AboutOverlay::onLike>(*this, ControlEvent::touchDown);
  contactUs_.addTarget<&AboutOverlay::onContactUs>(*this, ControlEvent::touchDown);
  get_all_apps_.addTarget<&AboutOverlay::onGetAllApps>(*this, ControlEvent::touchDown);
}

// Actions

bool AboutOverlay::asksForReview() const {
  return viewController && viewController->hostDelegate && overlayDelegate &&
         overlayDelegate->aboutOverlayCanRequestReview();
}

std::string AboutOverlay::reviewPage() const {
  const auto identifier = PluginInfo::storeIdentifier();
  if (!identifier || addresses_.reviewPage.empty()) return {};
  return addresses_.reviewPage + *identifier +
         "&onlyLatestVersion=true&pageNumber=0&sortOrdering=1&type=Purple+Software";
}

void AboutOverlay::onLike() {
  if (asksForReview())
    overlayDelegate->aboutOverlayRequestReview();
  else
    open(reviewPage());
}

void AboutOverlay::onContactUs() {
  if (addresses_.feedback.empty()) return;
  open("mailto:" + addresses_.feedback + "?subject=" +
       WebAddress::escaped(addresses_.maker + " Feedback - version " +
                           PluginInfo::completeVersion()));
}

void AboutOverlay::onGetAllApps() { open(addresses_.allApps); }

void AboutOverlay::tapWebsiteLink() { open(addresses_.website); }

// Showing and closing

void AboutOverlay::updateTexts() {
  title_.setText(PluginInfo::appName());
  version_.setText("version " + PluginInfo::completeVersion());
  like_.setHidden(!asksForReview() && reviewPage().empty());
  contactUs_.setHidden(addresses_.feedback.empty());
  get_all_apps_.setHidden(addresses_.allApps.empty());
  social_.setHidden(social_.shownCount() == 0);
  link_.setHidden(link_.text().empty());
}

void AboutOverlay::setHidden(bool hidden) {
  const bool changes = hidden != isHidden();
  if (!hidden) updateTexts();
  Modal::setHidden(hidden);
  if (!changes) return;
  if (!hidden) {
    takesKeyboard_ = true;
    becomeFirstResponder();
    takesKeyboard_ = false;
  }
  if (auto* owner = overlayDelegate.get()) owner->aboutOverlayHiddenChanged();
}

void AboutOverlay::touchBegan(const toolkit::Touch& touch) {
  if (!panel_.frame().contains(touch.locationIn(*this))) setHidden(true);
}

// Layout

void AboutOverlay::draw(const Rect&) {
  background_.setFrame(bounds());
  const Rect panel = OverlayStyle::panelIn(bounds());
  panel_.setFrame(panel);
  updateTexts();

  // A hundredth of the panel's height, or of what is not too wide for it.
  const double extent = std::min(panel.height, panel.width * 0.72);
  const double unit =
      (extent > ordinaryHeight ? ordinaryHeight * std::pow(extent / ordinaryHeight, 0.7) : extent) /
      100;
  const Rect column = panel.inset(panel.width * 0.07, 0);
  thanks_.setFont(Theme::regularFont.withSize(std::clamp(4.1 * unit, 9.0, 40.0)));

  const double thanksWidth = std::min(column.width, thanks_.font().pointSize * 36);
  const double thanksHeight = thanks_.heightFor(thanksWidth);
  const bool hasButtons = !like_.isHidden() || !contactUs_.isHidden() || !get_all_apps_.isHidden();
  const bool hasEnd = !social_.isHidden() || !link_.isHidden();
  const double heroHeight = 30 * unit, buttonHeight = 11.5 * unit, gap = 6.5 * unit;
  const double socialHeight = social_.isHidden() ? 0 : 10 * unit;
  const double linkHeight = link_.isHidden() ? 0 : 7 * unit;
  const double between = socialHeight > 0 && linkHeight > 0 ? 2.5 * unit : 0;
  double needed = heroHeight + gap + thanksHeight;
  if (hasButtons) needed += gap + buttonHeight;
  if (hasEnd) needed += 2 * gap + socialHeight + between + linkHeight;

  double y = panel.y + std::max(0.0, (panel.height - needed) * 0.46);
  layoutHero({column.x, y, column.width, heroHeight}, unit);
  y += heroHeight + gap;
  thanks_.setFrame({panel.midX() - thanksWidth / 2, y, thanksWidth, thanksHeight});
  y += thanksHeight + gap;
  if (hasButtons) {
    layoutButtons({column.x, y, column.width, buttonHeight}, unit);
    y += buttonHeight + gap;
  }
  rule_.setFrame(hasEnd ? Rect{panel.midX() - 18 * unit, y, 36 * unit, 1} : Rect{});
  y += gap;
  social_.setFrame({panel.midX() - 40 * unit, y, 80 * unit, socialHeight});
  y += socialHeight + between;
  link_.setFont(Theme::regularFont.withSize(std::clamp(3.9 * unit, 9.0, 36.0)));
  link_.setFrame({column.x, y, column.width, linkHeight});
}

void AboutOverlay::layoutHero(const Rect& place, double unit) {
  const double logoSide = appLogo_.image().isEmpty() ? 0 : place.height;
  const double gap = logoSide > 0 ? 5 * unit : 0;
  title_.setFont({platform::FontWeight::extraLight, 13 * unit, false});
  version_.setFont(Theme::regularFont.withSize(std::max(9.0, 4.4 * unit)));
  const auto widthOf = [&](const toolkit::Label& label) {
    return window() ? window()->textWidth(label.text(), label.font()) : 0;
  };
  const double room = place.width - logoSide - gap;
  const double textWidth =
      std::min(room, std::ceil(std::max(widthOf(title_), widthOf(version_))) + 2);
  const double x = place.midX() - (logoSide + gap + textWidth) / 2;
  appLogo_.setFrame({x, place.y, logoSide, logoSide});
  // Without a logo the texts are centred like all that follows.
  const auto alignment =
      logoSide > 0 ? platform::TextAlignment::left : platform::TextAlignment::centre;
  title_.setTextAlignment(alignment);
  version_.setTextAlignment(alignment);
  const double titleHeight = 16 * unit, versionHeight = 7 * unit;
  const double y = place.midY() - (titleHeight + versionHeight) / 2;
  title_.setFrame({x + logoSide + gap, y, textWidth, titleHeight});
  version_.setFrame({x + logoSide + gap, y + titleHeight, textWidth, versionHeight});
}

void AboutOverlay::layoutButtons(const Rect& place, double unit) {
  const platform::Font font =
      Theme::regularFont.withSize(std::min(std::max(4.1 * unit, 9.0), place.height * 0.5));
  std::vector<std::pair<kestroui::SimpleButton*, double>> shown;
  double sum = 0;
  for (kestroui::SimpleButton* button : {&like_, &contactUs_, &get_all_apps_}) {
    if (button->isHidden()) continue;
    button->setFont(font);
    const double text = window() ? window()->textWidth(button->title(), font) : 0;
    shown.emplace_back(button, text + place.height * 0.8 + 8 * unit);
    sum += shown.back().second;
  }
  const double gap = 2 * unit;
  const double gaps = gap * static_cast<double>(shown.size() - 1);
  const double scale = std::min(1.0, (place.width - gaps) / sum);
  double x = place.midX() - (sum * scale + gaps) / 2;
  for (const auto& [button, width] : shown) {
    button->setFrame({x, place.y, width * scale, place.height});
    x += width * scale + gap;
  }
}

}  // namespace orvane

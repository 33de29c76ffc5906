#include "Orvane/SocialView.h"

#include <algorithm>

#include "KestroUI/Icons.h"
#include "KestroUI/Theme.h"

namespace orvane {

SocialView::SocialView() {
  constexpr std::array<const char*, networks> names{"Facebook", "YouTube", "Instagram", "Twitter"};
  for (std::size_t i = 0; i < networks; ++i) {
    imageViews_[i].setAccessibilityLabel(names[i]);
    imageViews_[i].setTitleColor(kestroui::Theme::front);
  }
  setAddresses({});
}

void SocialView::setAddresses(const MakerAddresses& addresses) {
  instagramLink_ = addresses.instagram;
  youtubeLink_ = addresses.youtube;
  twitterLink_ = addresses.twitter;
  facebookLink_ = addresses.facebook;
  websiteLink_ = addresses.website;
  for (std::size_t i = 0; i < networks; ++i) imageViews_[i].setHidden(linkOf(i).empty());
  setNeedsDisplay();
}

std::size_t SocialView::shownCount() const {
  return static_cast<std::size_t>(std::count_if(imageViews_.begin(), imageViews_.end(),
                                                [](const auto& v) { return !v.isHidden(); }));
}

std::string SocialView::linkOf(std::size_t index) const {
  switch (index) {
    case 0:
      return facebookLink_;
    case 1:
      return youtubeLink_;
    case 2:
      return instagramLink_;
    default:
      return twitterLink_;
  }
}

void SocialView::handleTouchDown(toolkit::Control& sender) {
  for (std::size_t i = 0; i < networks; ++i)
    if (&sender == &imageViews_[i]) return open(linkOf(i));
}

void SocialView::didMoveToSuperview() {
  if (!superview()) return;
  for (std::size_t i = 0; i < networks; ++i) {
    imageViews_[i].setImage(kestroui::Icons::image(imageNames_[i]));
    imageViews_[i].addTarget<&SocialView::handleTouchDown>(*this, toolkit::ControlEvent::touchDown);
    addSubview(imageViews_[i]);
  }
}

void SocialView::draw(const platform::Rect&) {
  const double side = bounds().height;
  const auto count = static_cast<double>(shownCount());
  // As far apart as the row allows, but no farther than they are wide.
  const double gap =
      count > 1 ? std::clamp((bounds().width - side * count) / (count - 1), 0.0, side * 0.4) : 0;
  double x = (bounds().width - side * count - gap * (count - 1)) / 2;
  for (kestroui::ImageButton& button : imageViews_) {
    if (button.isHidden()) continue;
    button.setFrame({x, 0, side, side});
    x += side + gap;
  }
}

}  // namespace orvane

#pragma once

#include <array>
#include <string>

#include "KestroUI/KestroButtons.h"
#include "Orvane/MakerAddresses.h"
#include "Orvane/ResponderView.h"

namespace orvane {

/// A row of buttons, one for each network in which the maker has a page; the others are left out.
/// User-interface thread only.
class SocialView : public ResponderView {
 public:
  static constexpr std::size_t networks = 4;

  SocialView();

  void setAddresses(const MakerAddresses& addresses);
  /// How many buttons there are to see.
  std::size_t shownCount() const;

  /// Facebook, YouTube, Instagram, Twitter.
  std::array<kestroui::ImageButton, networks>& imageViews() { return imageViews_; }
  /// Names of their icons.
  const std::array<std::string, networks>& imageNames() const { return imageNames_; }

  /// The action of every button.
  void handleTouchDown(toolkit::Control& sender);

  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  std::string linkOf(std::size_t index) const;

  std::string instagramLink_;
  std::string youtubeLink_;
  std::string twitterLink_;
  std::string facebookLink_;
  std::string websiteLink_;
  std::array<kestroui::ImageButton, networks> imageViews_;
  std::array<std::string, networks> imageNames_{"people.png", "play.png", "camera.png", "chat.png"};
};

}  // namespace orvane

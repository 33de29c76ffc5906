#pragma once

#include <string>

#include "KestroUI/KestroButtons.h"
#include "Orvane/LinkLabel.h"
#include "Orvane/MakerAddresses.h"
#include "Orvane/ParagraphLabel.h"
#include "Orvane/ResponderView.h"
#include "Orvane/SocialView.h"
#include "toolkit/ImageView.h"
#include "toolkit/Label.h"
#include "toolkit/ModalView.h"

namespace orvane {

class KestroAUViewController;

/// What the about panel asks of its owner. Held weakly. User-interface thread only.
class AboutOverlayDelegate {
 public:
  virtual ~AboutOverlayDelegate() = default;

  /// Asks the system to let the user review the plug-in in its store.
  virtual void aboutOverlayRequestReview() = 0;
  /// Whether the system has a store to ask.
  virtual bool aboutOverlayCanRequestReview() = 0;
  /// It was shown or hidden, by itself as well.
  virtual void aboutOverlayHiddenChanged() = 0;
};

/// The panel over the whole editor that says what the plug-in is and leads to its maker. What has
/// no address is left out. Escape and a touch beside the panel close it. Owned by the overlay host.
/// User-interface thread only.
class AboutOverlay : public toolkit::Modal<ResponderView> {
 public:
  AboutOverlay();

  platform::Weak<AboutOverlayDelegate> overlayDelegate;
  /// For its host delegate.
  platform::Weak<KestroAUViewController> viewController;

  const MakerAddresses& addresses() const { return addresses_; }
  void setAddresses(MakerAddresses addresses);
  void setAppLogo(platform::Image logo);

  toolkit::Label& title() { return title_; }
  toolkit::Label& version() { return version_; }
  toolkit::ImageView& appLogo() { return appLogo_; }
  kestroui::SimpleButton& like() { return like_; }
  kestroui::SimpleButton& contactUs() { return contactUs_; }
  kestroui::SimpleButton& get_all_apps() { return get_all_apps_; }
  SocialView& social() { return social_; }
  LinkLabel& link() { return link_; }
  ParagraphLabel& thanks() { return thanks_; }
  const std::string& thxText() const { return thxText_; }
  /// Where the panel is; outside, a touch closes the overlay.
  const platform::Rect& panelFrame() const { return panel_.frame(); }

  void onLike();
  void onContactUs();
  void onGetAllApps();
  void tapWebsiteLink();

  /// Showing it reads the plug-in's name and version anew.
  void setHidden(bool hidden) override;
  bool canBecomeFirstResponder() const override { return takesKeyboard_; }
  void touchBegan(const toolkit::Touch& touch) override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  bool asksForReview() const;
  /// The page that takes reviews; empty without an address or an identifier.
  std::string reviewPage() const;
  void updateTexts();
  void layoutHero(const platform::Rect& place, double unit);
  void layoutButtons(const platform::Rect& place, double unit);

  const std::string thxText_ =
      "A big shout out to all of those who support us and help us to improve our apps "
      "continuously! Cheers! ";
  MakerAddresses addresses_;
  toolkit::Layer background_;
  toolkit::Layer panel_;
  toolkit::Layer rule_;
  toolkit::Label title_;
  toolkit::Label version_;
  toolkit::ImageView appLogo_;
  kestroui::SimpleButton like_;
  kestroui::SimpleButton contactUs_;
  kestroui::SimpleButton get_all_apps_;
  SocialView social_;
  LinkLabel link_;
  ParagraphLabel thanks_;
  /// It has the keyboard from the moment it is shown, but is no stop of the Tab key.
  bool takesKeyboard_ = false;
};

}  // namespace orvane

#include "Orvane/AboutOverlay.h"

#include <gmock/gmock.h>

#include <memory>

#include "KestroUI/Icons.h"
#include "foundation/Bundle.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using toolkit::ControlEvent;

const std::string reviewEnd =
    "&onlyLatestVersion=true&pageNumber=0&sortOrdering=1&type=Purple+Software";

class Program : public platform::Application {
 public:
  bool open(const std::string& url) override {
    opened.push_back(url);
    return true;
  }
  bool canRequestReview() const override { return hasStore; }
  void requestReview() override { ++reviews; }

  std::vector<std::string> opened;
  bool hasStore = false;
  int reviews = 0;
};

class Host : public KestroAUViewControllerDelegate, public platform::WeakTarget {
 public:
  void didSelectMidiMap(const std::shared_ptr<kestroui::ParamKey>&) override {}
  void deleteMidiMap(const std::shared_ptr<kestroui::ParamKey>&) override {}
};

class Controller : public support::TestController {
 public:
  using TestController::TestController;
  MakerAddresses addresses() override { return given; }
  MakerAddresses given;
};

class AboutOverlayTest : public testing::Test {
 protected:
  AboutOverlayTest() {
    design->addPage("Main", {support::section("All", {"a"})});
    controller.given.reviewPage = "https://store.example.org/review?id=";
    controller.given.feedback = "us@example.org";
    controller.given.allApps = "https://store.example.org/all";
    controller.given.website = "https://www.example.org/";
    controller.given.facebook = "https://example.org/f";
    controller.given.instagram = "not an address";
  }
  AboutOverlay& about() { return controller.overlaysView().aboutViewOverlay(); }
  void show() {
    window.show(controller);
    controller.menuBar().onAboutButton();
    window.window.prepareFrame();
  }
  static void press(toolkit::Control& button) { button.sendActions(ControlEvent::touchDown); }

  Program program;
  Host host;
  support::ManualLoop loop;
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  Controller controller{design};
  support::EditorWindow window{{800, 600}, &program};
};

TEST_F(AboutOverlayTest, likeAsksTheStoreWhereAHostHasOneAndOpensItsPageElsewhere) {
  struct Case {
    bool hasHost, hasStore;
    int reviews;
  };
  window.show(controller);
  for (const Case& c :
       {Case{false, false, 0}, {false, true, 0}, {true, false, 0}, {true, true, 1}}) {
    program.opened.clear();
    controller.hostDelegate = c.hasHost ? &host : nullptr;
    program.hasStore = c.hasStore;
    press(about().like());
    EXPECT_EQ(program.reviews, c.reviews);
    if (c.reviews)
      EXPECT_THAT(program.opened, IsEmpty());
    else
      EXPECT_THAT(program.opened,
                  ElementsAre("https://store.example.org/review?id=6789" + reviewEnd));
  }
}

TEST_F(AboutOverlayTest, inTheSmallestEditorItsButtonsStillHoldTheirTexts) {
  show();
  window.resize({160, 120});
  EXPECT_LE(about().like().font().pointSize, about().like().bounds().height / 2);
}

TEST_F(AboutOverlayTest, whatIsOpenedLastIsInFront) {
  window.show(controller);
  MenuBar& bar = controller.menuBar();
  OverlaysView& overlays = controller.overlaysView();
  for (int round = 0; round < 2; ++round) {
    bar.onAboutButton();
    EXPECT_EQ(overlays.subviews().back(), &about());
    EXPECT_EQ(bar.subviews().back(), &bar.aboutButton()) << "it closes what it has opened";
    bar.onPresetButton();
    EXPECT_EQ(overlays.subviews().back(), &overlays.presetViewOverlay());
    bar.onPresetButton();
  }
}

TEST_F(AboutOverlayTest, likeIsLeftOutWithoutAnIdentifierOrAPage) {
  {
    const foundation::MainBundle bundle({{"CFBundleDisplayName", "Foam"},
                                         {"CFBundleShortVersionString", "1.0"},
                                         {"CFBundleVersion", "2"}});
    show();
    EXPECT_TRUE(about().like().isHidden());
    press(about().like());
    EXPECT_THAT(program.opened, IsEmpty());
  }
  MakerAddresses none;
  about().setAddresses(none);
  about().setHidden(true);
  about().setHidden(false);
  EXPECT_TRUE(about().like().isHidden());
}

TEST_F(AboutOverlayTest, aLetterNamesMakerAndVersionAndLinksLeadWhereTheySay) {
  controller.given.maker = "Foam & Co";
  show();
  press(about().contactUs());
  press(about().get_all_apps());
  about().link().tapped();
  press(about().social().imageViews()[0]);
  EXPECT_THAT(program.opened, ElementsAre("mailto:us@example.org?subject="
                                          "Foam%20%26%20Co%20Feedback%20-%20version%201.2.3.45",
                                          "https://store.example.org/all",
                                          "https://www.example.org/", "https://example.org/f"));
  EXPECT_EQ(about().link().text(), "www.example.org");
}

TEST_F(AboutOverlayTest, whatIsNoAddressAndWhatHasNoDelegateDoesNothing) {
  show();
  press(about().social().imageViews()[2]);
  kestroui::ImageButton stranger;
  about().social().handleTouchDown(stranger);
  about().delegate = nullptr;
  about().overlayDelegate = nullptr;
  about().social().delegate = nullptr;
  press(about().like());
  press(about().contactUs());
  press(about().get_all_apps());
  press(about().social().imageViews()[0]);
  about().tapWebsiteLink();
  EXPECT_THAT(program.opened, IsEmpty());
}

TEST_F(AboutOverlayTest, theButtonInTheMenuBarShowsTheLogoOrWhatClosesThePanel) {
  kestroui::ImageButton& button = controller.menuBar().aboutButton();
  window.show(controller);
  EXPECT_TRUE(button.image().isEmpty()) << "the plug-in has none";
  controller.menuBar().setAppLogo(kestroui::Icons::image("cloud.png"));
  const platform::Image logo = controller.menuBar().appLogo();
  EXPECT_EQ(button.image(), logo);
  const auto closes = [&](auto close) {
    controller.menuBar().onAboutButton();
    window.window.prepareFrame();
    EXPECT_FALSE(about().isHidden());
    EXPECT_FALSE(button.image() == logo);
    EXPECT_TRUE(about().isFirstResponder());
    close();
    window.window.prepareFrame();
    EXPECT_TRUE(about().isHidden());
    EXPECT_EQ(button.image(), logo);
  };
  closes([&] { controller.menuBar().onAboutButton(); });
  platform::KeyEvent escape;
  escape.key = platform::Key::escape;
  closes([&] { EXPECT_TRUE(window.window.keyPressed(escape)); });
  EXPECT_FALSE(window.window.keyPressed(escape)) << "nothing is open: it is the host's";
  closes([&] { window.tap({3, 590}); });
  closes([&] {
    controller.menuBar().onPresetButton();
    EXPECT_FALSE(controller.overlaysView().presetViewOverlay().isHidden());
  });
  controller.menuBar().onAboutButton();
  EXPECT_TRUE(controller.overlaysView().presetViewOverlay().isHidden()) << "one at a time";
  window.tap(about().panelFrame().centre());
  EXPECT_FALSE(about().isHidden()) << "not beside it";
}

TEST_F(AboutOverlayTest, aLinkIsAsWideAsItsTextAndHasKeys) {
  show();
  const platform::Rect frame = about().link().frame();
  const auto at = [&](double x) { return about().convertToRoot({x, frame.midY()}); };
  window.tap(at(frame.x + 2));
  EXPECT_THAT(program.opened, IsEmpty());
  window.tap(at(frame.midX()));
  for (const platform::Key key : {platform::Key::returnKey, platform::Key::space})
    EXPECT_TRUE(about().link().keyPressed({key, platform::Modifiers::none, ""}));
  EXPECT_FALSE(
      about().link().keyPressed({platform::Key::returnKey, platform::Modifiers::control, ""}));
  EXPECT_EQ(program.opened.size(), 3u);
}

TEST_F(AboutOverlayTest, whatHasNoAddressIsLeftOutAndTheRestStaysInTheMiddle) {
  show();
  const double middle = about().panelFrame().midX();
  EXPECT_EQ(about().social().shownCount(), 2u);
  const auto& images = about().social().imageViews();
  EXPECT_NEAR(images[0].frame().x + images[2].frame().maxX(), about().social().bounds().width,
              1e-6);
  MakerAddresses few;
  few.allApps = "https://store.example.org/all";
  about().setAddresses(few);
  window.window.prepareFrame();
  for (const toolkit::View* part : std::initializer_list<toolkit::View*>{
           &about().like(), &about().contactUs(), &about().social(), &about().link()})
    EXPECT_TRUE(part->isHidden());
  EXPECT_FALSE(about().get_all_apps().isHidden());
  EXPECT_NEAR(about().get_all_apps().frame().midX(), middle, 1e-6);
}

TEST_F(AboutOverlayTest, everyPartStaysWithinThePanelAtAnySize) {
  show();
  for (const platform::Size size :
       {platform::Size{480, 320}, {320, 480}, {1024, 768}, {2560, 1600}, {120, 90}}) {
    window.resize(size);
    const platform::Rect panel = about().panelFrame();
    double bottom = panel.y;
    for (const toolkit::View* part : std::initializer_list<toolkit::View*>{
             &about().title(), &about().version(), &about().thanks(), &about().like(),
             &about().social(), &about().link()}) {
      const platform::Rect frame = part->frame();
      EXPECT_GE(frame.x, panel.x) << size.width;
      EXPECT_LE(frame.maxX(), panel.maxX()) << size.width;
      EXPECT_GE(frame.y, bottom - 1e-9) << size.width << " overlap";
      bottom = frame.maxY();
    }
    if (size.height >= 300) {
      EXPECT_LE(bottom, panel.maxY()) << size.width;
    }
  }
}

TEST_F(AboutOverlayTest, everyButtonHasANameForWhoDoesNotSeeIt) {
  show();
  for (toolkit::View* button : std::initializer_list<toolkit::View*>{
           &about().like(), &about().contactUs(), &about().get_all_apps(), &about().link()}) {
    EXPECT_EQ(button->accessibility().role, platform::Accessibility::Role::button);
    EXPECT_NE(button->accessibility().name, "");
  }
  for (auto& button : about().social().imageViews()) EXPECT_NE(button.accessibility().name, "");
  EXPECT_EQ(about().thanks().accessibility().name, about().thxText());
}

}  // namespace
}  // namespace orvane

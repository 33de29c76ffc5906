#include "Orvane/MenuBar.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <thread>

#include "foundation/NetworkSession.h"
#include "foundation/SharedURLSession.h"
#include "tests/support/HttpServer.h"
#include "tests/support/ManualDriver.h"

namespace orvane {
namespace {

using platform::Rect;
using support::HttpServer;
using testing::ElementsAre;
using testing::IsEmpty;

class Owner : public MenuBarDelegate, public platform::WeakTarget {
 public:
  void menuBarDidRequestRandomize() override { ++randomized; }
  void menuBarDidChangeDisplay(int index) override { displays.push_back(index); }
  void menuBarOpenURL(const std::string& url) override { opened.push_back(url); }

  int randomized = 0;
  std::vector<int> displays;
  std::vector<std::string> opened;
};

class MenuBarTest : public testing::Test {
 protected:
  MenuBarTest() {
    bar->delegate = &owner;
    bar->setFrame({0, 0, 1000, 50});
  }
  void show() { editor.addSubview(*bar); }
  /// Runs the loop until `done` or ten seconds have passed.
  template <class Done>
  bool waitUntil(Done done) {
    for (int i = 0; i < 1000 && !done(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      loop.settle();
    }
    return done();
  }
  bool hasHelp() const { return bar->helpButton().superview() == bar.get(); }

  support::ManualLoop loop;
  foundation::NetworkSession session;
  foundation::SharedURLSession shared{session};
  Owner owner;
  toolkit::View editor;
  std::unique_ptr<MenuBar> bar = std::make_unique<MenuBar>();
};

TEST_F(MenuBarTest, itsViewsAreInTheOrderInWhichTheyAreDrawn) {
  show();
  EXPECT_THAT(bar->subviews(), ElementsAre(&bar->aboutButton(), &bar->presetNameLabel(),
                                           &bar->logoView(), &bar->arrowLeft(), &bar->arrowRight(),
                                           &bar->randomizeButton(), &bar->presetMenuButton()));
}

TEST_F(MenuBarTest, withoutAListOfPresetsThereIsNothingToStepThroughOrToOpen) {
  show();
  EXPECT_TRUE(bar->arrowLeft().isHidden());
  EXPECT_TRUE(bar->arrowRight().isHidden());
  EXPECT_TRUE(bar->presetNameLabel().isHidden());
  EXPECT_TRUE(bar->presetMenuButton().isHidden());
}

TEST_F(MenuBarTest, thePresetButtonShowsItsPictureUntilThereIsAName) {
  kestroui::SimpleButton& button = bar->presetNameLabel();
  const platform::Image picture = button.image();
  EXPECT_FALSE(picture.isEmpty());
  EXPECT_EQ(button.accessibility().name, "Presets");
  bar->setPresetName("Warm");
  EXPECT_TRUE(button.image().isEmpty());
  EXPECT_EQ(button.accessibility().name, "Warm");
  bar->setPresetName("");
  EXPECT_EQ(button.image(), picture);
}

TEST_F(MenuBarTest, helpIsShownOnceTheServerHasToldItsAddress) {
  HttpServer server([](const std::string&) {
    return HttpServer::response("200 OK", "https://example.org/help?x=1\n");
  });
  bar->productId = "foam";
  bar->helpHost = server.address();
  show();
  EXPECT_FALSE(hasHelp());
  ASSERT_TRUE(waitUntil([&] { return hasHelp(); }));
  EXPECT_THAT(server.requests(),
              ElementsAre("GET /LICENSES/help_url.php?product_identifier=foam HTTP/1.1"));
  bar->draw(bar->bounds());
  EXPECT_EQ(bar->helpButton().frame(), (Rect{900, 12.5, 25, 25}));
  bar->helpButton().sendActions(toolkit::ControlEvent::touchDown);
  EXPECT_THAT(owner.opened, ElementsAre("https://example.org/help?x=1"));
  bar->removeFromSuperview();
  show();
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  EXPECT_EQ(server.requests().size(), 1u) << "asked once only";
}

TEST_F(MenuBarTest, anAddressThatIsNoneIsShownButNotOpened) {
  HttpServer server([](const std::string&) { return HttpServer::response("200 OK", "see below"); });
  bar->productId = "foam";
  bar->helpHost = server.address();
  show();
  ASSERT_TRUE(waitUntil([&] { return hasHelp(); }));
  bar->onHelpClicked();
  EXPECT_THAT(owner.opened, IsEmpty());
}

TEST_F(MenuBarTest, anAnswerThatIsNoneShowsNoHelp) {
  struct Answer {
    const char *status, *body;
  };
  for (const Answer& answer :
       {Answer{"404 Not Found", "https://example.org/help"}, Answer{"200 OK", ""},
        Answer{"200 OK", "https://example.org/\xff"}}) {
    HttpServer server(
        [&](const std::string&) { return HttpServer::response(answer.status, answer.body); });
    MenuBar other;
    other.productId = "foam";
    other.helpHost = server.address();
    editor.addSubview(other);
    ASSERT_TRUE(server.waitForRequest());
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    loop.settle();
    EXPECT_EQ(other.helpButton().superview(), nullptr) << answer.status << answer.body;
  }
}

TEST_F(MenuBarTest, nobodyIsAskedWithoutAProductAHostOrAValidAddress) {
  HttpServer server([](const std::string&) { return HttpServer::response("200 OK", "x:y"); });
  for (const auto& [product, host] : {std::pair{std::string(), server.address()},
                                      {std::string("foam"), std::string()},
                                      {std::string("no blanks"), server.address()}}) {
    MenuBar other;
    other.productId = product;
    other.helpHost = host;
    editor.addSubview(other);
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_THAT(server.requests(), IsEmpty()) << product << host;
  }
}

TEST_F(MenuBarTest, anEditorMayCloseWhileItsRequestIsUnderWay) {
  for (const bool answersInTheEnd : {false, true}) {
    HttpServer server([](const std::string&) { return HttpServer::response("200 OK", "x:y"); },
                      HttpServer::Answers::whenReleased);
    auto other = std::make_unique<MenuBar>();
    other->productId = "foam";
    other->helpHost = server.address();
    editor.addSubview(*other);
    ASSERT_TRUE(server.waitForRequest());
    if (answersInTheEnd) {
      server.release();
      // Its answer may lie in the main queue by now.
      std::this_thread::sleep_for(std::chrono::milliseconds(60));
    }
    const auto start = std::chrono::steady_clock::now();
    other.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    loop.settle();
  }
}

TEST_F(MenuBarTest, displaysAreReportedAndMakeRoomForHelp) {
  HttpServer server([](const std::string&) { return HttpServer::response("200 OK", "x:y"); });
  bar->productId = "foam";
  bar->helpHost = server.address();
  show();
  bar->setDisplays({"Bars", "Lines"});
  bar->displayMode()->setSelectedIndex(1);
  bar->displayMode()->sendActions(toolkit::ControlEvent::valueChanged);
  EXPECT_THAT(owner.displays, ElementsAre(1));
  ASSERT_TRUE(waitUntil([&] { return hasHelp(); }));
  bar->draw(bar->bounds());
  EXPECT_LE(bar->displayMode()->frame().maxX(), bar->helpButton().frame().x);
  bar->setFrame({0, 0, 600, 62});
  bar->draw(bar->bounds());
  EXPECT_GT(bar->displayMode()->frame().width, 40) << "in a square editor";
  bar->setFrame({0, 0, 60, 50});
  bar->draw(bar->bounds());
  EXPECT_EQ(bar->aboutButton().frame().width, 0);
}

TEST_F(MenuBarTest, whatItAsksForGoesToItsOwnerWhileThereIsOne) {
  show();
  bar->onRandomize();
  EXPECT_EQ(owner.randomized, 1);
  bar->delegate = nullptr;
  bar->onRandomize();
  bar->onAboutButton();
  bar->onPresetButton();
  bar->onPresetArrow(bar->arrowLeft());
  EXPECT_EQ(owner.randomized, 1);
}

}  // namespace
}  // namespace orvane

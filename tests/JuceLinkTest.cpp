// Links on the desktop, with a program of the test in the place of the desktop's.

#include "backends/juce/OpenLink.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "backends/juce/EditorComponent.h"
#include "tests/support/TemporaryFolder.h"

namespace juce_backend {
namespace {

class LinkTest : public testing::Test {
 protected:
  LinkTest() : path_(std::getenv("PATH") ? std::getenv("PATH") : "") {
    const std::string program = folder / "xdg-open";
    std::ofstream(program) << "#!/bin/sh\nprintf '%s' \"$1\" > '" << (folder / "part") << "'; mv '"
                           << (folder / "part") << "' '" << (folder / "opened") << "'\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    ::setenv("PATH", (std::string(folder / "") + ":" + path_).c_str(), 1);
  }
  ~LinkTest() override { ::setenv("PATH", path_.c_str(), 1); }

  std::string opened() {
    const std::string file = folder / "opened";
    for (int i = 0; i < 1000 && !std::filesystem::exists(file); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    std::ifstream stream(file);
    std::string text;
    std::getline(stream, text);
    std::filesystem::remove(file);
    return text;
  }

  const support::TemporaryFolder folder;
  const std::string path_;
};

TEST_F(LinkTest, pagesAndLettersGoToTheDesktopsProgramAsTheyStand) {
  for (const char* url : {"https://example.org/a?b=$(touch%20x)&c=`id`;d='e'\"f",
                          "http://example.org", "mailto:a@example.org?subject=x%20y"}) {
    EXPECT_TRUE(openLink(url));
    EXPECT_EQ(opened(), url);
  }
}

TEST_F(LinkTest, anEditorsLinksAreOpenedAtTheEndOfItsResponders) {
  const juce::ScopedJuceInitialiser_GUI juceIsUp;
  EditorComponent editor([] { return std::make_unique<toolkit::ViewController>(); });
  platform::Application* application = nullptr;
  for (platform::Responder* each = &editor.controller().view(); each && !application;
       each = each->nextResponder())
    application = dynamic_cast<platform::Application*>(each);
  ASSERT_TRUE(application);
  EXPECT_TRUE(application->open("https://example.org/help"));
  EXPECT_EQ(opened(), "https://example.org/help");
  EXPECT_EQ(application->presentation(), &editor.presentation());
}

TEST_F(LinkTest, nothingElseIsOpened) {
  for (const char* url : {"", "file:///etc/hostname", "/etc/hostname", "javascript:alert(1)", "-h"})
    EXPECT_FALSE(openLink(url)) << url;
  EXPECT_FALSE(std::filesystem::exists(folder / "opened"));
}

TEST_F(LinkTest, withoutSuchAProgramNothingIsOpened) {
  std::filesystem::remove(folder / "xdg-open");
  ::setenv("PATH", std::string(folder / "").c_str(), 1);
  EXPECT_FALSE(openLink("https://example.org"));
}

}  // namespace
}  // namespace juce_backend

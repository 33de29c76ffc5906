// A plug-in as a program of its own: its window and settings, notes from the letter keys, and what
// it does without a display or a sound device. The cases with a window need an X server; CTest runs
// them in one of its own.

#include "backends/juce/Standalone.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>

#include "Orvane/PresetManager.h"
#include "backends/juce/StandaloneWindow.h"
#include "tests/support/JuceBench.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using juce_backend::runStandalone;
using juce_backend::StandaloneWindow;
using testing::HasSubstr;

/// An environment variable with another value for a while.
class Environment {
 public:
  Environment(const char* name, const std::string& value) : name_(name) {
    if (const char* text = std::getenv(name)) before_ = text;
    ::setenv(name, value.c_str(), 1);
  }
  ~Environment() {
    if (before_)
      ::setenv(name_, before_->c_str(), 1);
    else
      ::unsetenv(name_);
  }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

class StandaloneTest : public testing::Test {
 protected:
  using Script = std::function<void(StandaloneWindow&)>;
  /// An editor that keeps presets.
  class Keeper : public support::TestController {
   public:
    explicit Keeper(std::string groupId)
        : TestController(std::make_shared<support::GivenDesign>()), group_(std::move(groupId)) {}
    std::string groupBundleId() override { return group_; }

   private:
    const std::string group_;
  };

  /// Runs the program, `script` once its window is there and `later` a moment later; then closes it
  /// as a user would.
  int run(const Script& script, const Script& later = nullptr,
          const std::string& settings = "settings") {
    orvane::PluginEntry entry = support::renderLogEntry();
    entry.makeAudioUnit = [this] {
      auto made = std::make_unique<support::RenderLog>();
      unit = made.get();
      return made;
    };
    if (!group.empty())
      entry.makeViewController = [this] { return std::make_unique<Keeper>(group); };
    bool hasRun = false;
    entry.makeViewController = [this, script, later, &hasRun, make = entry.makeViewController] {
      juce::MessageManager::callAsync([script, later, &hasRun] {
        // A controller is made to make the audio unit, too.
        if (std::exchange(hasRun, true)) return;
        for (int i = 0; i < juce::TopLevelWindow::getNumTopLevelWindows(); ++i)
          if (auto* window =
                  dynamic_cast<StandaloneWindow*>(juce::TopLevelWindow::getTopLevelWindow(i))) {
            script(*window);
            juce::Timer::callAfterDelay(later ? 300 : 1, [window, later] {
              if (later) later(*window);
              window->closeButtonPressed();
            });
            return;
          }
        hasRun = false;
        juce::JUCEApplicationBase::quit();
      });
      auto controller = make();
      editor = controller.get();
      return controller;
    };
    testing::internal::CaptureStderr();
    const int result = runStandalone(entry, {settings.empty() ? "" : folder / settings});
    said = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(hasRun) << "no window has come";
    return result;
  }
  static juce::Rectangle<int> sizeOf(StandaloneWindow& window) {
    return window.getContentComponent()->getLocalBounds();
  }

  support::TemporaryFolder folder;
  support::RenderLog* unit = nullptr;
  orvane::KestroAUViewController* editor = nullptr;
  std::string said;
  /// Empty for an editor that keeps no presets.
  std::string group;
};

struct StandaloneWindowTest : StandaloneTest {
  void SetUp() override {
    if (!juce_backend::isDisplayAvailable()) GTEST_SKIP() << "needs a display";
  }
};

TEST_F(StandaloneTest, withoutADisplayItPaintsItsPagesAndSaysWhere) {
  const Environment cache("XDG_CACHE_HOME", folder.path());
  for (const char* display : {"", ":87654"}) {
    const Environment none("DISPLAY", display);
    EXPECT_FALSE(juce_backend::isDisplayAvailable());
    testing::internal::CaptureStdout();
    EXPECT_EQ(runStandalone(support::renderLogEntry(), {}), 0);
    const std::string told = testing::internal::GetCapturedStdout();
    const std::string where = told.substr(told.rfind("are in ") + 7);
    EXPECT_THAT(told, HasSubstr("Render log"));
    EXPECT_EQ(where, folder / "org.example.renderlog\n") << "the same each time";
    EXPECT_TRUE(std::filesystem::exists(folder / "org.example.renderlog/page-1.png")) << told;
  }
}

TEST_F(StandaloneTest, picturesThatCannotBeWrittenAreAnError) {
  const Environment none("DISPLAY", "");
  const Environment cache("XDG_CACHE_HOME", folder.path());
  orvane::PluginEntry entry = support::renderLogEntry();
  folder.write("file", "x");
  entry.identifier = "file/below";
  testing::internal::CaptureStderr();
  EXPECT_EQ(runStandalone(entry, {}), 1);
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("cannot make the folder"));
}

TEST_F(StandaloneWindowTest, theWindowComesBackAsLargeAsItsUserLeftIt) {
  EXPECT_EQ(run([](StandaloneWindow& window) {
              EXPECT_EQ(sizeOf(window), juce::Rectangle<int>(600, 400));
              EXPECT_EQ(window.getName(), "Render log");
              EXPECT_TRUE(window.getContentComponent()->isShowing());
              window.setContentComponentSize(700, 450);
            }),
            0);
  EXPECT_TRUE(std::filesystem::exists(folder / "settings/org.example.renderlog.settings"));
  const auto isAsLarge = [](StandaloneWindow& window) {
    EXPECT_EQ(sizeOf(window), juce::Rectangle<int>(700, 450));
    EXPECT_EQ(window.getConstrainer()->getMinimumWidth(), 480);
    EXPECT_EQ(window.getConstrainer()->getMinimumHeight(), 320 + 24) << "and the menu";
  };
  run(isAsLarge, isAsLarge);
  folder.write("settings/org.example.renderlog.settings",
               "<PROPERTIES><VALUE name=\"windowWidth\" val=\"99999\"/><VALUE "
               "name=\"windowHeight\" val=\"1\"/></PROPERTIES>");
  run([](StandaloneWindow& window) {
    EXPECT_LT(sizeOf(window).getWidth(), 9000);
    EXPECT_GE(sizeOf(window).getWidth(), 600);
    EXPECT_EQ(sizeOf(window).getHeight(), 320);
  });
}

TEST_F(StandaloneWindowTest, aSessionThatEndsClosesItAsItsUserWould) {
  for (const int signal : {SIGTERM, SIGHUP}) {
    run(
        [signal](StandaloneWindow& window) {
          window.setContentComponentSize(700, 400 + signal);
          std::raise(signal);
        },
        [](StandaloneWindow&) { ADD_FAILURE() << "it goes on"; });
    run([signal](StandaloneWindow& window) {
      EXPECT_EQ(sizeOf(window), juce::Rectangle<int>(700, 400 + signal));
    });
  }
}

TEST_F(StandaloneWindowTest, withoutAFolderOfItsOwnItUsesTheUsers) {
  const Environment home("HOME", folder.path());
  const Environment config("XDG_CONFIG_HOME", folder / ".config");
  run([](StandaloneWindow&) {}, nullptr, "");
  EXPECT_TRUE(std::filesystem::exists(folder / ".config/Orvane/org.example.renderlog.settings"));
}

TEST_F(StandaloneWindowTest, theEditorKnowsWhereItIsAndHasTheKeyboard) {
  run([this](StandaloneWindow& window) {
    EXPECT_TRUE(editor->isStandaloneVersion);
    EXPECT_EQ(editor->audioUnit(), unit);
    EXPECT_TRUE(window.getContentComponent()->hasKeyboardFocus(true));
  });
}

TEST_F(StandaloneWindowTest, lettersThatNoControlWantsPlayNotes) {
  // A sound device that plays into nothing.
  const Environment sound("ALSA_CONFIG_PATH",
                          folder.write("asound.conf",
                                       "pcm.!default { type null hint { show on description "
                                       "\"Nothing\" } }\nctl.!default { type hw card 0 }\n"));
  std::vector<int> notes;
  const auto play = [](StandaloneWindow& window) {
    window.getPeer()->handleKeyPress(juce::KeyPress('Z', {}, 'z'));
    window.getPeer()->handleKeyPress(juce::KeyPress('Z', juce::ModifierKeys::altModifier, 'z'));
    window.getPeer()->handleKeyUpOrDown(false);
    window.getPeer()->handleKeyPress(juce::KeyPress('Q', {}, 'q'));
  };
  run(play, [&](StandaloneWindow&) { notes = unit->notes(); });
  // A window that loses the keyboard ends its notes, too.
  if (notes.size() > 3) notes.resize(3);
  EXPECT_THAT(notes, testing::ElementsAre(48, 48, 60)) << said;
  EXPECT_THAT(said, testing::Not(HasSubstr("silent")));
}

TEST_F(StandaloneWindowTest, withoutASoundDeviceItSaysThatItIsSilent) {
  const Environment sound("ALSA_CONFIG_PATH", folder.write("asound.conf", ""));
  EXPECT_EQ(run([](StandaloneWindow&) {}), 0);
  EXPECT_THAT(said, HasSubstr("Render log is silent: "));
}

TEST_F(StandaloneWindowTest, midiLearnIsSwitchedByTheMenusAndEndedByEscape) {
  run([this](StandaloneWindow& window) {
    auto& content = dynamic_cast<juce_backend::EditorComponent&>(*window.getContentComponent());
    ASSERT_TRUE(content.menu);
    const auto item = [&] {
      const juce::PopupMenu menu = content.menu("");
      juce::PopupMenu::MenuItemIterator items(menu);
      items.next();
      return items.getItem();
    };
    EXPECT_EQ(item().text, "MIDI learn");
    EXPECT_FALSE(item().isTicked);
    item().action();
    EXPECT_TRUE(item().isTicked);
    EXPECT_TRUE(editor->midiMappingEnabled());
    EXPECT_TRUE(window.getPeer()->handleKeyPress(juce::KeyPress(juce::KeyPress::escapeKey)));
    EXPECT_FALSE(item().isTicked);
    EXPECT_FALSE(window.keyPressed(juce::KeyPress(juce::KeyPress::escapeKey)));
    item().action();
    EXPECT_TRUE(window.keyPressed(juce::KeyPress(juce::KeyPress::escapeKey)))
        << "also where the editor has not the keyboard";
    EXPECT_FALSE(item().isTicked);
  });
}

TEST_F(StandaloneWindowTest, presetsAreKeptInTheFolderThatTheUserHasChosen) {
  const Environment data("XDG_DATA_HOME", folder / "data");
  const Environment none("ORVANE_CLOUD", "");
  std::filesystem::create_directory(folder / "cloud");
  folder.write(
      "settings/org.example.renderlog.settings",
      "<PROPERTIES><VALUE name=\"cloudFolder\" val=\"" + folder / "cloud" + "\"/></PROPERTIES>");
  run([](StandaloneWindow& window) {
    auto* bar = dynamic_cast<juce::MenuBarComponent*>(window.getMenuBarComponent());
    EXPECT_EQ(bar->getModel()->getMenuBarNames().size(), 1) << "an editor without presets";
  });
  group = "group.renderlog";
  run([this](StandaloneWindow& window) {
    EXPECT_THAT(editor->presetManager()->iCloudPresetPath().value_or(""),
                testing::StartsWith(folder / "cloud/"));
    EXPECT_TRUE(editor->presetManager()->saveNew("Pad", {}));
    auto* model = dynamic_cast<juce::MenuBarComponent*>(window.getMenuBarComponent())->getModel();
    const auto item = [&](int place) {
      const juce::PopupMenu menu = model->getMenuForIndex(1, {});
      juce::PopupMenu::MenuItemIterator items(menu);
      for (int i = 0; i <= place; ++i) items.next();
      return items.getItem();
    };
    EXPECT_EQ(item(1).text, juce::String("Keep presets in " + folder / "cloud"));
    EXPECT_FALSE(item(0).isTicked);
    item(0).action();
    EXPECT_TRUE(item(0).isTicked);
    EXPECT_FALSE(editor->presetManager()->iCloudPresetPath());
    EXPECT_EQ(editor->presetManager()->saveNew("Pad", {}),
              folder / "data/orvane/group.renderlog/Presets/Pad.preset");
  });
  run([this](StandaloneWindow&) {
    EXPECT_FALSE(editor->presetManager()->iCloudPresetPath()) << "the choice is kept";
  });
  const Environment named("ORVANE_CLOUD", folder / "cloud");
  run([this](StandaloneWindow&) {
    EXPECT_TRUE(editor->presetManager()->iCloudPresetPath()) << "unless the environment has one";
  });
}

}  // namespace

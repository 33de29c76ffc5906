// An editor in a window: mouse and keys on their way in, frames on their way out, and what happens
// when the window goes.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>

#include "backends/juce/EditorComponent.h"
#include "tests/support/JuceBench.h"
#include "tests/support/OffScreenWindow.h"

namespace {

using juce_backend::EditorComponent;
using support::OffScreenWindow;

constexpr int left = juce::ModifierKeys::leftButtonModifier;
constexpr int right = juce::ModifierKeys::rightButtonModifier;
constexpr int shift = juce::ModifierKeys::shiftModifier;

/// A view that writes down what comes in, in a controller that writes down its life on screen.
class Notebook : public toolkit::ViewController {
 public:
  explicit Notebook(std::string& log) : pad(log), log_(log) {}

  void viewDidLoad() override {
    view().setBackgroundColor(background);
    view().addSubview(pad);
  }
  void viewDidAppear() override { log_ += "appear "; }
  void viewDidDisappear() override { log_ += "disappear "; }

  struct Pad : toolkit::View {
    explicit Pad(std::string& text) : View({10, 10, 40, 40}), log(text) {}
    void touchBegan(const toolkit::Touch& touch) override {
      log += "down" + std::to_string(touch.tapCount);
      if (touch.kind == toolkit::Touch::Kind::finger) log += " finger";
      if (has(touch.modifiers, platform::Modifiers::shift)) log += " shift";
      log += ' ';
    }
    void touchMoved(const toolkit::Touch& touch) override {
      log += has(touch.modifiers, platform::Modifiers::shift) ? "fine " : "move ";
    }
    void touchEnded(const toolkit::Touch& touch) override {
      log += pointInside(touch.locationIn(*this)) ? "up " : "off ";
    }
    void touchCancelled(const toolkit::Touch&) override { log += "cancel "; }
    void hoverChanged(bool hovered) override { log += hovered ? "in " : "out "; }
    bool wheelTurned(const platform::WheelEvent& event) override {
      log += "wheel" + std::to_string(std::lround(event.deltaY)) + " ";
      return true;
    }
    void paint(platform::Canvas& canvas) override {
      canvas.fillEllipse(bounds(), color);
      canvas.drawText("jjj", {platform::FontWeight::regular, 16, false}, bounds(),
                      platform::TextAlignment::left, color);
    }

    platform::Color color = platform::Color::white();
    std::string& log;
  };

  platform::Color background = platform::Color::rgb(0x204060);
  Pad pad;

 private:
  std::string& log_;
};

class JuceWindowTest : public testing::Test {
 protected:
  juce::ScopedJuceInitialiser_GUI juceIsUp;
  std::string log;
};

struct NotebookTest : JuceWindowTest {
  NotebookTest() {
    editor.setSize(103, 61);
    window = std::make_unique<OffScreenWindow>(editor);
    window->screen();
    log.clear();
  }
  Notebook& notebook() { return static_cast<Notebook&>(editor.controller()); }
  std::string taken() { return std::exchange(log, {}); }

  EditorComponent editor{[this] { return std::make_unique<Notebook>(log); }};
  std::unique_ptr<OffScreenWindow> window;
};

TEST_F(NotebookTest, theMouseArrivesWithItsClicksKeysAndHover) {
  window->mouse({30, 30});
  EXPECT_EQ(taken(), "in ");
  window->mouse({30, 30}, left | shift);
  EXPECT_EQ(taken(), "down1 shift ");
  window->mouse({30, 20}, left);
  window->mouse({30, 10}, left | shift);
  window->mouse({30, 10});
  EXPECT_EQ(taken(), "move fine up ");
  window->mouse({30, 20}, left);
  window->mouse({80, 20}, left);
  window->mouse({80, 20});
  EXPECT_EQ(taken(), "down1 move off ") << "let go beside it";
  window->mouse({30, 20});
  taken();
  window->pause();
  for (int click = 0; click < 2; ++click) {
    window->mouse({30, 25}, left);
    window->mouse({30, 25});
  }
  EXPECT_EQ(taken(), "down1 up down2 up ");
  window->mouse({80, 10});
  EXPECT_EQ(taken(), "out ");
  window->mouse({30, 30});
  window->mouse({-500, -500});
  EXPECT_EQ(taken(), "in out ") << "out of the window as well";
}

TEST_F(NotebookTest, onlyTheLeftButtonPressesAndTheRightOneOpensTheMenu) {
  window->mouse({30, 30}, right);
  window->mouse({30, 20}, right);
  window->mouse({30, 20});
  EXPECT_EQ(taken(), "in ");
  editor.menu = [](const std::string&) {
    juce::PopupMenu menu;
    menu.addItem("Delete", [] {});
    return menu;
  };
  const int before = editor.getNumChildComponents();
  window->mouse({30, 30}, right);
  window->mouse({30, 30});
  EXPECT_EQ(taken().find("down"), std::string::npos);
  ASSERT_EQ(editor.getNumChildComponents(), before + 1);
  EXPECT_EQ(&editor.getChildComponent(before)->getLookAndFeel(), &editor.getLookAndFeel())
      << "in the editor's own colours";
  EXPECT_TRUE(dynamic_cast<juce_backend::EditorLook*>(&editor.getLookAndFeel()));
  juce::PopupMenu::dismissAllActiveMenus();
  support::runUntil([&] { return editor.getNumChildComponents() == before; });
}

TEST_F(NotebookTest, aWheelThatNobodyTakesGoesToTheWindowAround) {
  window->wheel({30, 30}, -2);
  EXPECT_EQ(taken(), "in wheel-2 ");
  EXPECT_EQ(window->wheelsLeft, 0);
  window->wheel({80, 30}, 1);
  EXPECT_EQ(taken(), "out ");
  EXPECT_EQ(window->wheelsLeft, 1);
}

TEST_F(NotebookTest, theKeyboardIsTheEditorsOnceItHasBeenClicked) {
  window->mouse({80, 30}, left);
  window->mouse({80, 30});
  EXPECT_TRUE(editor.hasKeyboardFocus(false));
  EXPECT_FALSE(window->key(juce::KeyPress('Y', {}, 'y'))) << "goes back to the host";
}

TEST_F(NotebookTest, hidingCancelsWhatIsDownAndTheNextPressIsANewOne) {
  window->mouse({30, 30}, left);
  taken();
  editor.setVisible(false);
  EXPECT_EQ(taken(), "cancel disappear ");
  window->mouse({30, 30});
  editor.setVisible(true);
  EXPECT_EQ(taken(), "out appear ");
  window->pause();
  window->mouse({30, 31});
  window->mouse({30, 31}, left);
  window->mouse({30, 31});
  EXPECT_EQ(taken(), "in down1 up ");
}

TEST_F(JuceWindowTest, anEditorThatIsDestroyedInItsWindowDisappearsFirst) {
  // The run loop outlives it, and must not look for it in a place that is empty.
  const juce::SharedResourcePointer<juce_backend::JuceRunLoop> loop;
  alignas(EditorComponent) std::byte place[sizeof(EditorComponent)];
  auto* editor = new (place) EditorComponent([&] { return std::make_unique<Notebook>(log); });
  editor->setSize(100, 60);
  OffScreenWindow window(*editor);
  static_cast<Notebook&>(editor->controller()).pad.setNeedsDisplay();
  editor->~EditorComponent();
  std::fill_n(place, sizeof place, std::byte{0});
  EXPECT_EQ(log, "appear disappear ");
  support::runFor(0.05);
}

TEST_F(JuceWindowTest, aWindowThatClosesInTheMiddleOfADragEndsTheGesture) {
  const orvane::PluginEntry entry = support::renderLogEntry();
  support::RenderLog unit;
  std::string gestures;
  unit.parameterTree().setGestureObserver(
      [&](platform::AUParameterAddress, bool began) { gestures += began ? "begin " : "end "; });
  EditorComponent editor(entry, unit);
  auto window = std::make_unique<OffScreenWindow>(editor);
  window->screen();
  auto& controller = static_cast<orvane::KestroAUViewController&>(editor.controller());
  const platform::Point knob = controller.container("mix")->control()->frameInRoot().centre();
  const juce::Point<float> at(static_cast<float>(knob.x), static_cast<float>(knob.y));
  window->mouse(at, left);
  window->mouse(at.translated(0, -20), left);
  EXPECT_GT(unit.parameter("mix")->value(), 25);
  EXPECT_EQ(gestures, "begin ");
  window.reset();
  EXPECT_EQ(gestures, "begin end ");
}

TEST_F(JuceWindowTest, whatMovesLeavesNoTracesAtAnyScale) {
  for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
    EditorComponent editor([&] { return std::make_unique<Notebook>(log); });
    editor.setSize(103, 61);
    OffScreenWindow window(editor, scale);
    auto& pad = static_cast<Notebook&>(editor.controller()).pad;
    window.screen();
    for (int step = 1; step < 12; ++step) {
      pad.setFrame({10 + step * 3.37, 10 + step * 1.61, 23.3, 17.7});
      ASSERT_TRUE(support::runUntil([&] { return window.isDirty(); })) << "no frame has come";
      window.screen();
    }
    const juce::Image shown = window.screen().createCopy();
    // Another scale and back makes the whole picture anew.
    for (const double other : {scale + 1, scale}) {
      juce::Image fresh(juce::Image::RGB, shown.getWidth() * 3, shown.getHeight() * 3, true,
                        juce::SoftwareImageType());
      juce::Graphics graphics(fresh);
      graphics.addTransform(juce::AffineTransform::scale(static_cast<float>(other)));
      editor.paintEntireComponent(graphics, true);
      if (other != scale) continue;
      for (int y = 0; y < shown.getHeight(); ++y)
        for (int x = 0; x < shown.getWidth(); ++x)
          ASSERT_EQ(shown.getPixelAt(x, y).getARGB(), fresh.getPixelAt(x, y).getARGB())
              << x << ", " << y << " at scale " << scale;
    }
  }
}

TEST_F(JuceWindowTest, theWholeEditorIsPaintedAtEverySizeAndScale) {
  EditorComponent editor([&] { return std::make_unique<Notebook>(log); });
  editor.setSize(103, 61);
  for (const double scale : {1.0, 1.25, 1.5}) {
    OffScreenWindow window(editor, scale);
    for (const int width : {103, 90, 117}) {
      window.setSize(width, 61);
      editor.setSize(width, 61);
      const juce::Image& screen = window.screen();
      for (const juce::Point<int> at : {juce::Point<int>(1, 1),
                                        {static_cast<int>(std::lround(width * scale)) - 1,
                                         static_cast<int>(std::lround(61 * scale)) - 1}})
        EXPECT_EQ(screen.getPixelAt(at.x, at.y).getARGB(), 0xff204060u)
            << at.toString() << " of " << width << " at scale " << scale;
    }
  }
}

TEST_F(JuceWindowTest, aTranslucentEditorIsPaintedOnBlackEachTime) {
  EditorComponent editor([&] {
    auto controller = std::make_unique<Notebook>(log);
    controller->background = platform::Color::white().withAlpha(0.5f);
    return controller;
  });
  editor.setSize(100, 60);
  OffScreenWindow window(editor);
  const juce::Colour first = window.screen().getPixelAt(80, 30);
  EXPECT_NEAR(first.getRed(), 128, 1);
  for (int round = 0; round < 3; ++round) {
    editor.controller().view().setBackgroundColor(
        platform::Color::white().withAlpha(round % 2 == 0 ? 0.25f : 0.5f));
    ASSERT_TRUE(support::runUntil([&] { return window.isDirty(); }));
    EXPECT_NEAR(window.screen().getPixelAt(80, 30).getRed(), round % 2 == 0 ? 64 : 128, 1);
  }
}

TEST_F(JuceWindowTest, aQuietEditorAsksForNothing) {
  EditorComponent editor([&] { return std::make_unique<Notebook>(log); });
  editor.setSize(100, 60);
  OffScreenWindow window(editor);
  window.screen();
  support::runFor(0.1);
  EXPECT_FALSE(window.isDirty());
}

TEST_F(JuceWindowTest, whatChangedWhileTheWindowWasHiddenIsShownWhenItComesBack) {
  EditorComponent editor([&] { return std::make_unique<Notebook>(log); });
  editor.setSize(100, 60);
  OffScreenWindow window(editor);
  window.screen();
  support::runFor(0.05);
  editor.setVisible(false);
  editor.controller().view().setBackgroundColor(platform::Color::rgb(0x102030));
  support::runFor(0.05);
  editor.setVisible(true);
  support::runUntil([&] { return window.screen().getPixelAt(80, 30).getRed() == 0x10; }, 1);
  EXPECT_EQ(window.screen().getPixelAt(80, 30).getARGB(), 0xff102030u);
}

}  // namespace

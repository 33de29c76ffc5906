// Every kind of control in the gallery, tried by robots that have a keyboard alone, a mouse alone,
// and a MIDI device.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>

#include "KestroUI/DropDownList.h"
#include "examples/Gallery/GalleryPlugin.h"
#include "tests/support/EditorHands.h"

namespace {

using platform::AUParameter;
using platform::Key;

/// What shows a value and does not set it.
bool isOnlyShown(const AUParameter& parameter) {
  const std::set<std::string> shown = {"label", "led", "samplePosition"};
  return shown.contains(parameter.key()) || parameter.displayName() == "Reduction";
}

class GalleryTest : public testing::Test, protected support::EditorHands {
 protected:
  GalleryTest() : EditorHands(gallery::pluginEntry()) {
    for (AUParameter* parameter : tree().allParameters())
      reached_[parameter->address()] = {parameter->value(), parameter->value()};
    token_ = tree().tokenByAddingParameterObserver(
        [this](platform::AUParameterAddress address, float value) {
          auto& [lowest, highest] = reached_[address];
          lowest = std::min(lowest, value);
          highest = std::max(highest, value);
        });
  }
  ~GalleryTest() override { tree().removeParameterObserver(token_); }

  platform::AUParameterTree& tree() { return host.audioUnit().parameterTree(); }

  /// Every parameter that has a control was moved over a good part of its range, and the control
  /// shows where it was left.
  void expectEverythingSet() {
    loop.runDue();
    int set = 0;
    for (AUParameter* parameter : tree().allParameters()) {
      if (isOnlyShown(*parameter)) continue;
      ++set;
      const auto& [lowest, highest] = reached_[parameter->address()];
      const auto span = [&](float from, float to) {
        const bool isPitch = parameter->unit() == platform::AudioUnitParameterUnit::hertz;
        return isPitch ? std::log2(to / from) : to - from;
      };
      EXPECT_GT(span(lowest, highest), 0.2f * span(parameter->minValue(), parameter->maxValue()))
          << parameter->key();
      const auto container = host.editor().container(parameter->key());
      if (container && container->key() && container->key()->key() == parameter->key()) {
        EXPECT_EQ(container->valueText(), parameter->stringFromValue(parameter->value()))
            << parameter->key();
      }
    }
    EXPECT_GT(set, 100);
  }

  static bool isInContainer(toolkit::View& view) {
    for (toolkit::View* outer = &view; outer; outer = outer->superview())
      if (dynamic_cast<kestroui::Container*>(outer)) return true;
    return false;
  }
  std::vector<kestroui::Container*> shownContainers() {
    std::vector<kestroui::Container*> containers;
    visitShown(host.rootView(), [&](toolkit::View& view) {
      if (auto* container = dynamic_cast<kestroui::Container*>(&view))
        containers.push_back(container);
    });
    return containers;
  }

 private:
  std::map<platform::AUParameterAddress, std::pair<float, float>> reached_;
  platform::AUParameterObserverToken token_ = nullptr;
};

TEST_F(GalleryTest, AKeyboardAloneSetsEveryParameter) {
  for (int page = 0; page < pageCount(); ++page) {
    showPage(page);
    dropFocus();
    for (toolkit::View* view : walk()) {
      if (!isInContainer(*view)) continue;
      ASSERT_TRUE(view->becomeFirstResponder());
      const bool opens = dynamic_cast<kestroui::DropDownList*>(view) != nullptr;
      // In a shape with several values, left and right choose among them; a pad's go sideways.
      for (int i = 0; i < 60; ++i) press(Key::left);
      for (int i = 0; i < 60; ++i) {
        for (Key key : {Key::home, Key::pageUp, Key::up, Key::end, Key::pageDown, Key::down})
          press(key);
        if (!opens) press(Key::space);
        press(Key::right);
      }
      EXPECT_EQ(focused(), view) << view->accessibility().name;
    }
  }
  expectEverythingSet();
}

TEST_F(GalleryTest, AMouseAloneSetsEveryParameter) {
  for (int page = 0; page < pageCount(); ++page) {
    showPage(page);
    for (kestroui::Container* container : shownContainers()) {
      const platform::Rect frame = container->frameInRoot();
      constexpr int columns = 16, rows = 8;
      for (int i = 0; i < columns * rows; ++i) {
        const int row = i / columns;
        const platform::Point place{frame.x + frame.width * (i % columns + 0.5) / columns,
                                    frame.y + frame.height * (row + 0.5) / rows};
        const double way = i % 2 == 0 ? 120 : -120;
        host.drag(place, i / 2 % 2 == 0 ? platform::Point{way, 0} : platform::Point{0, way});
        host.turnWheel(place, i % 2 == 0 ? 3 : -4);
      }
    }
  }
  expectEverythingSet();
}

TEST_F(GalleryTest, EveryKeyCanBeLearnedAndThenFollowsItsMessage) {
  int learned = 0;
  for (AUParameter* parameter : tree().allParameters()) {
    const auto controller = static_cast<std::uint8_t>(learned % 120);
    const auto channel = static_cast<std::uint8_t>(learned / 120);
    const std::uint8_t message[] = {static_cast<std::uint8_t>(0xb0 | channel), controller, 0};
    ASSERT_TRUE(host.midiLearn().bind(parameter->key(), {message[0], message[1]}))
        << parameter->key();
    ++learned;
    for (const std::uint8_t value : {0, 127}) {
      const std::uint8_t now[] = {message[0], message[1], value};
      host.receiveMidi(now);
      loop.runDue();
      EXPECT_NEAR(parameter->value(), value == 0 ? parameter->minValue() : parameter->maxValue(),
                  1e-3f * (parameter->maxValue() - parameter->minValue()))
          << parameter->key();
    }
  }
  EXPECT_GT(learned, 100);
}

}  // namespace

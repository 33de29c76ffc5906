// Three threads on the same parameters for a thousand rounds: the host's automation, MIDI, and a user
// who drags, changes pages and sizes, loads presets, learns and reopens the editor. Afterwards, and
// at every stop on the way, the audio unit, its controls and its host agree on every value; and what
// no hand but one has moved is where that hand has put it.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <set>
#include <thread>

#include "Orvane/MidiLearn.h"
#include "Orvane/MidiScale.h"
#include "Orvane/ParameterMapping.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;
using platform::Point;
using support::paramKey;

const std::vector<std::string> fingerKeys{"attack", "cutoff", "x",    "volume",
                                          "left",   "s1",     "push", "all"};
const std::vector<std::string> hostKeys{"decay", "sustain", "padOnOff", "right",
                                        "s2",    "mode",    "all"};
const std::vector<std::string> midiKeys{"release", "padHold", "s3", "count", "all"};

std::vector<quillon::ParameterDescription> parameters() {
  std::vector<quillon::ParameterDescription> all;
  for (const char* key : {"attack", "decay", "sustain", "release", "resonance", "x", "y", "volume",
                          "left", "right", "s1", "s2", "s3", "s4", "all"})
    all.push_back({.key = key, .defaultValue = 0.5f});
  all.push_back({.key = "cutoff",
                 .minValue = 20,
                 .maxValue = 20000,
                 .defaultValue = 440,
                 .unit = AudioUnitParameterUnit::hertz});
  for (const char* key : {"padOnOff", "padHold", "push"})
    all.push_back({.key = key, .unit = AudioUnitParameterUnit::boolean});
  for (const char* key : {"mode", "count"})
    all.push_back({.key = key,
                   .maxValue = 25,
                   .unit = AudioUnitParameterUnit::indexed,
                   .valueStrings = std::vector<std::string>(26, "name")});
  for (std::size_t i = 0; i < all.size(); ++i) all[i].address = i;
  return all;
}

/// A thread that does one thing over and over, but for the time that somebody else holds it.
class Hand {
 public:
  explicit Hand(std::function<void(std::minstd_rand&)> action)
      : thread_([this, action = std::move(action)] {
          std::minstd_rand random(7);
          while (!stopped_) {
            {
              const std::lock_guard lock(turn);
              action(random);
            }
            std::this_thread::sleep_for(std::chrono::microseconds(40));
          }
        }) {}
  ~Hand() {
    stopped_ = true;
    thread_.join();
  }

  std::mutex turn;

 private:
  std::atomic<bool> stopped_{false};
  std::thread thread_;
};

class ValueStressTest : public testing::Test {
 protected:
  ValueStressTest() {
    design->givenKeys = {paramKey("attack", ControlType::adsr, {"decay", "sustain", "release"}),
                         paramKey("cutoff", ControlType::filter, {"resonance"}),
                         paramKey("x", ControlType::xyControl, {"y", "padOnOff", "padHold"}),
                         paramKey("volume", ControlType::knob),
                         paramKey("push", ControlType::simpleButton),
                         paramKey("left", ControlType::multiple, {"right"}),
                         paramKey("s1", ControlType::stepSequencer, {"s2", "s3", "s4"}),
                         paramKey("mode", ControlType::dropdownList),
                         paramKey("count", ControlType::stepper),
                         paramKey("all", ControlType::slider)};
    design->addPage("1", {support::section("A", {"attack", "cutoff"}),
                          support::section("B", {"x", "volume", "push", "all"})});
    design->addPage("2", {support::section("C", {"left", "s1"}),
                          support::section("D", {"mode", "count", "all"})});
    unit.parameterTree().setGestureObserver([this](platform::AUParameterAddress at, bool began) {
      held[at] += began ? 1 : -1;
      EXPECT_TRUE(held[at] == 0 || held[at] == 1) << "gestures do not nest";
      // MIDI makes gestures too; what nobody but a finger moves is not asked for.
      const std::string& key = unit.parameterTree().parameterWithAddress(at)->key();
      if (std::find(midiKeys.begin(), midiKeys.end(), key) == midiKeys.end()) touched.insert(key);
    });
    unit.parameterTree().tokenByAddingParameterObserver(
        [this](platform::AUParameterAddress at, float) {
          hostSees[at] = unit.parameterTree().parameterWithAddress(at)->value();
        });
    for (const std::string& key : unit.parametersKeys())
      hostSees[parameter(key).address()] = parameter(key).value();
    presets = {unit.fullState()};
    unit.randomize();
    presets.push_back(unit.fullState());
    bindAll();
    open();
  }
  ~ValueStressTest() override { unit.parameterTree().setGestureObserver({}); }

  platform::AUParameter& parameter(const std::string& key) { return *unit.parameter(key); }
  void bindAll() {
    learn.removeAll();
    for (std::size_t i = 0; i < midiKeys.size(); ++i)
      learn.bind(midiKeys[i], {0xb0, static_cast<std::uint8_t>(i)});
  }
  void open() {
    learn.setEditor(nullptr);
    controller = std::make_unique<support::TestController>(design);
    controller->setAudioUnit(&unit);
    editor.show(*controller);
    learn.setEditor(controller.get());
  }

  // The user's doings

  void drag(std::minstd_rand& random) {
    const std::string& key = fingerKeys[random() % fingerKeys.size()];
    kestroui::Container& container = *controller->container(key);
    if (!container.isVisible()) return;
    Point at =
        container.convertToRoot(handleOf(container, key).value_or(container.bounds().centre()));
    editor.window.touchBegan(1, toolkit::Touch::Kind::finger, at, 1);
    for (int step = 0; step < 4; ++step) {
      at.x += static_cast<double>(random() % 41) - 20;
      at.y += static_cast<double>(random() % 41) - 20;
      editor.window.touchMoved(1, at);
      if (step % 2) loop.settle();
    }
    // Some fingers are still down when the next thing happens.
    if (random() % 2) return editor.window.touchEnded(1, at);
    if (random() % 2) controller->connectViewWithAU();
  }
  void act(std::minstd_rand& random, bool isWild) {
    SettingsViewController& pages = controller->settingsViewController();
    switch (random() % (isWild ? 12 : 9)) {
      case 0:
        return pages.setCurrentPage(1 - pages.currentPage());
      case 1:
        return editor.resize({480.0 + static_cast<double>(random() % 600), 400});
      case 2:
        return controller->connectViewWithAU();
      case 9:
        unit.setFullState(presets[random() % presets.size()]);
        return;
      case 10:
        learn.setLearning(!learn.isLearning());
        return learn.didSelectMidiMap(paramKey(midiKeys[random() % 2], ControlType::knob));
      case 11:
        return open();
      default:
        return drag(random);
    }
  }

  // What has to hold while nobody moves

  void stop() {
    editor.window.cancelTouches();
    // The first tells what has moved last, and the second that it rests.
    learn.poll(now += 1);
    learn.poll(now += 1);
    loop.settle();
    editor.window.prepareFrame();
    for (const auto& [at, count] : held) EXPECT_EQ(count, 0) << "a gesture of " << at;
    for (const std::string& key : unit.parametersKeys())
      EXPECT_EQ(hostSees[parameter(key).address()], parameter(key).value()) << key;
    for (const auto& [own, container] : controller->controls().controls())
      for (std::size_t i = 0; i < container->paramKeys().size(); ++i) {
        const std::string& key = container->paramKeys()[i]->key();
        const ParameterMapping mapping(parameter(key), container->valueForm(i));
        EXPECT_NEAR(container->value(i), mapping.positionOf(parameter(key).value()), 1e-6) << key;
        if (i > 0) continue;
        EXPECT_EQ(container->valueText(), parameter(key).stringFromValue(parameter(key).value()));
      }
  }
  /// Whoever alone has moved a parameter finds it where it was put.
  void expectOwn(const std::map<std::string, float>& put) {
    for (const auto& [key, value] : put) {
      if (key == "all" || touched.count(key)) continue;
      EXPECT_EQ(parameter(key).value(), value) << key << " was moved by somebody else";
      ++owned;
    }
  }

  support::ManualLoop loop;
  quillon::CommonAudioUnit unit{parameters()};
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  support::EditorWindow editor{{800, 400}};
  std::unique_ptr<support::TestController> controller;
  MidiLearn learn{unit};
  std::vector<platform::PropertyList> presets;
  std::array<std::atomic<float>, 32> hostSees{};
  std::map<platform::AUParameterAddress, int> held;
  std::set<std::string> touched;
  double now = 0;
  int owned = 0;
};

TEST_F(ValueStressTest, AFingerAHostAndMidiNeverUndoEachOther) {
  constexpr int rounds = 1000, roundsAnEpoch = 25;
  std::map<std::string, float> automated, played;
  std::atomic<int> changes{0}, messages{0};
  std::minstd_rand random(3);
  {
    Hand host([&](std::minstd_rand& dice) {
      const std::string& key = hostKeys[dice() % hostKeys.size()];
      auto& target = *unit.parameter(key);
      const auto steps =
          static_cast<int>(target.unit() == AudioUnitParameterUnit::indexed ? 25 : 1);
      const auto share = static_cast<float>(dice() % 1001) / 1000;
      const bool isWhole = target.unit() != AudioUnitParameterUnit::generic;
      const float value = isWhole ? std::round(share * static_cast<float>(steps)) : share;
      target.setValue(value);
      automated[key] = value;
      ++changes;
    });
    Hand midi([&](std::minstd_rand& dice) {
      const std::size_t which = dice() % midiKeys.size();
      const auto value = static_cast<std::uint8_t>(dice() % 128);
      learn.receive(std::array<std::uint8_t, 3>{0xb0, static_cast<std::uint8_t>(which), value});
      played[midiKeys[which]] = midiParameterValue(*unit.parameter(midiKeys[which]), value);
      ++messages;
    });
    for (int epoch = 0; epoch < rounds / roundsAnEpoch; ++epoch) {
      const bool isWild = epoch % 2;
      for (int round = 0; round < roundsAnEpoch; ++round) {
        // However fast each of them runs here, they keep step.
        const int wanted = 3 * (epoch * roundsAnEpoch + round);
        while (changes < wanted || messages < wanted) std::this_thread::yield();
        act(random, isWild);
        learn.poll(now += 0.02);
        loop.advance(0.02);
        editor.window.prepareFrame();
      }
      const std::scoped_lock still(host.turn, midi.turn);
      stop();
      if (!isWild) {
        expectOwn(automated);
        expectOwn(played);
        EXPECT_EQ(parameter("push").value(), 0) << "no finger is down any more";
      }
      if (HasFailure()) break;
      // What a wild epoch has loaded or bound is nobody's.
      learn.setLearning(false);
      bindAll();
      parameter("push").setValue(0);
      touched.clear();
      automated.clear();
      played.clear();
    }
  }
  EXPECT_GT(owned, 40) << "there were siblings to be undone";
}

}  // namespace
}  // namespace orvane

// One plug-in among many of its kind in a process.

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <memory>
#include <vector>

#include "backends/juce/AudioUnitEditor.h"
#include "examples/Halden/HaldenPlugin.h"
#include "tests/support/OffScreenWindow.h"

namespace {

using juce_backend::AudioUnitProcessor;

/// What the process holds.
struct Holdings {
  double bytes = 0;
  long descriptors = 0, threads = 0;

  static Holdings now() {
    const auto entries = [](const char* folder) {
      const std::filesystem::directory_iterator all(folder);
      return static_cast<long>(std::distance(begin(all), end(all)));
    };
    // What has been freed on other threads, timers and queues, is only told now.
    support::runFor(0.3);
    const struct mallinfo2 heap = ::mallinfo2();
    return {static_cast<double>(heap.uordblks + heap.hblkhd), entries("/proc/self/fd"),
            entries("/proc/self/task")};
  }
};

/// A plug-in whose editor can be open, as a host has it.
class Instance {
 public:
  ~Instance() { close(); }
  void open() {
    editor_.reset(plugin_.createEditor());
    window_ = std::make_unique<support::OffScreenWindow>(*editor_);
    window_->screen();
  }
  void close() {
    window_.reset();
    if (editor_) plugin_.editorBeingDeleted(editor_.get());
    editor_.reset();
  }
  void play() {
    plugin_.prepareToPlay(48000, 512);
    juce::AudioBuffer<float> buffer(2, 512);
    juce::MidiBuffer midi;
    midi.addEvent(juce::MidiMessage::noteOn(1, 60, 1.0f), 0);
    plugin_.processBlock(buffer, midi);
  }

 private:
  AudioUnitProcessor plugin_{halden::pluginEntry()};
  std::unique_ptr<juce::AudioProcessorEditor> editor_;
  std::unique_ptr<support::OffScreenWindow> window_;
};

using Instances = std::vector<std::unique_ptr<Instance>>;

void add(Instances& instances, int count, int editors) {
  for (int i = 0; i < count; ++i) {
    instances.push_back(std::make_unique<Instance>());
    instances.back()->play();
    if (i < editors) instances.back()->open();
  }
}

class InstancesTest : public testing::Test {
 protected:
  juce::ScopedJuceInitialiser_GUI juceIsUp_;
};

TEST_F(InstancesTest, fiftyWithTenEditorsCostTheSameEachAndGoWithoutATrace) {
  Instances instances;
  add(instances, 2, 2);
  instances.clear();
  const Holdings none = Holdings::now();
  add(instances, 10, 2);
  const Holdings ten = Holdings::now();
  add(instances, 40, 8);
  const Holdings fifty = Holdings::now();
  instances.clear();
  const Holdings after = Holdings::now();

  const double first = ten.bytes - none.bytes, rest = fifty.bytes - ten.bytes;
  RecordProperty("kilobytesOfFifty", static_cast<int>((fifty.bytes - none.bytes) / 1024));
  RecordProperty("kilobytesLeft", static_cast<int>((after.bytes - none.bytes) / 1024));
  EXPECT_NEAR(rest / first, 4, 0.4);
  EXPECT_LT(fifty.bytes - none.bytes, 400e6);
  EXPECT_LT(after.bytes - none.bytes, 150e3);
  EXPECT_EQ(fifty.threads, ten.threads);
  EXPECT_EQ(after.threads, none.threads);
  EXPECT_EQ(fifty.descriptors, ten.descriptors);
  EXPECT_EQ(after.descriptors, none.descriptors);
}

TEST_F(InstancesTest, openingAndClosingAnEditorLeavesNothing) {
  // A host lab asks for more.
  const char* const wanted = std::getenv("ORVANE_OPENINGS");
  const int count = wanted ? std::atoi(wanted) : 24;
  Instance instance;
  const auto openAndClose = [&](int times) {
    for (int i = 0; i < times; ++i) {
      instance.open();
      instance.close();
    }
    return Holdings::now();
  };
  const Holdings early = openAndClose(count / 10 + 2);
  const Holdings late = openAndClose(count - count / 10);
  RecordProperty("kilobytesEarly", static_cast<int>(early.bytes / 1024));
  RecordProperty("kilobytesLate", static_cast<int>(late.bytes / 1024));
  // As much as the heap keeps back of small pieces, however often.
  EXPECT_LT(late.bytes - early.bytes, 150e3);
  EXPECT_EQ(late.descriptors, early.descriptors);
  EXPECT_EQ(late.threads, early.threads);
}

}  // namespace

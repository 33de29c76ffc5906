#include "KestroUI/MidiMapBadge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "KestroUI/MultipleContainer.h"
#include "KestroUI/ShapeContainers.h"
#include "KestroUI/ValueContainers.h"
#include "tests/support/Drawing.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/ShapeKinds.h"

namespace kestroui {
namespace {

TEST(MidiMapText, NamesWhatMovesAControl) {
  const struct {
    std::vector<std::uint8_t> message;
    const char* text;
  } cases[] = {
      {{176, 74}, "CC 74 ch 1"},
      {{0xbf, 7, 100}, "CC 7 ch 16"},
      {{0x90, 60}, "Note C4 ch 1"},
      {{0x82, 0}, "Note C-1 ch 3"},
      {{0xe3}, "Bend ch 4"},
      {{0xd0, 1}, "Pressure ch 1"},
      {{0xc0, 4}, "Prog 5 ch 1"},
      {{0xa0, 61}, "Touch C#4 ch 1"},
      {{0xf0, 1, 2}, "240 1 2"},
      {{0xb0}, "176"},
      {{}, ""},
  };
  for (const auto& each : cases) EXPECT_EQ(MidiMapText(each.message).whole(), each.text);
}

class MidiMapBadgeTest : public testing::Test {
 protected:
  void show(Container& container, const std::vector<std::string>& names,
            const platform::Rect& frame) {
    container.setParamKeys(support::keys(names));
    owner.listenTo(container);
    bench.root().addSubview(container);
    container.setFrame(frame);
    bench.frame();
  }
  bool says(Container& container, const std::string& text) {
    bench.frame();
    return support::Drawing(*container.midiMapBadge()).says(text);
  }

  support::ManualLoop loop;
  support::WindowBench bench;
  support::ContainerOwner owner;
};

TEST_F(MidiMapBadgeTest, LearnModeShowsWhatHasBeenBoundBefore) {
  KnobContainer knob, small;
  for (KnobContainer* const each : {&knob, &small}) each->setMidiMapMessage({{0xb0, 74}});
  knob.setTitle("Cutoff");
  show(knob, {"cutoff"}, {0, 0, 120, 120});
  show(small, {"q"}, {200, 0, 36, 50});
  EXPECT_EQ(knob.midiMapBadge(), nullptr);
  knob.setMidiMappingEnabled(true);
  small.setMidiMappingEnabled(true);
  EXPECT_TRUE(says(knob, "CC 74 ch 1"));
  const support::Drawing picture(*knob.midiMapBadge());
  EXPECT_NEAR(picture.all(support::Drawing::Kind::text).front().area.midY(),
              knob.control()->frame().midY(), 2)
      << "on the control, beside the title";
  EXPECT_TRUE(says(small, "CC 74") && says(small, "ch 1")) << "in two lines";
  knob.setMidiMapMessage(std::nullopt);
  EXPECT_FALSE(says(knob, "CC 74 ch 1"));
  knob.setMidiMapSelected(true);
  EXPECT_TRUE(says(knob, "Waiting"));
  knob.setMidiMapSelected(false);
  EXPECT_FALSE(says(knob, "Waiting"));
  knob.setMidiMappingEnabled(false);
  EXPECT_TRUE(knob.midiMapBadge()->isHidden());
}

TEST_F(MidiMapBadgeTest, WhatOnlyShowsCannotBeLearned) {
  LEDViewContainer light;
  SimpleLabelContainer label;
  KnobContainer knob;
  knob.setMappable(false);
  for (Container* const each : std::vector<Container*>{&light, &label, &knob}) {
    show(*each, {"key"}, {0, 0, 80, 80});
    each->setMidiMappingEnabled(true);
    EXPECT_FALSE(each->midiMapBadge() && !each->midiMapBadge()->isHidden());
    each->removeFromSuperview();
  }
  knob.setMappable(true);
  ASSERT_NE(knob.midiMapBadge(), nullptr);
  EXPECT_FALSE(knob.midiMapBadge()->isHidden());
}

TEST_F(MidiMapBadgeTest, ATapSelectsAndOneInTheCornerOfABoundControlDeletes) {
  for (const double width : {30.0, 60.0, 200.0})
    for (const double height : {30.0, 90.0})
      for (const bool bound : {false, true}) {
        SCOPED_TRACE(testing::Message() << width << " x " << height << (bound ? " bound" : ""));
        KnobContainer knob;
        show(knob, {"cutoff"}, {0, 0, width, height});
        if (bound) knob.setMidiMapMessage({{0xb0, 74}});
        knob.setMidiMappingEnabled(true);
        bench.frame();
        bench.tap({width * 0.3, 5});
        EXPECT_THAT(owner.take(), testing::ElementsAre("select cutoff"));
        bench.tap({width - 4, 4});
        EXPECT_THAT(owner.take(), testing::ElementsAre(bound ? "delete cutoff" : "select cutoff"));
        EXPECT_EQ(knob.value(), 0) << "learning moves nothing";
      }
}

TEST_F(MidiMapBadgeTest, TheKeyboardSelectsAndDeletesToo) {
  using platform::Key;
  KnobContainer knob;
  show(knob, {"cutoff"}, {0, 0, 100, 100});
  knob.setMidiMappingEnabled(true);
  knob.midiMapBadge()->becomeFirstResponder();
  EXPECT_TRUE(bench.key(Key::returnKey));
  EXPECT_FALSE(bench.key(Key::backspace)) << "there is nothing to delete";
  EXPECT_THAT(owner.take(), testing::ElementsAre("select cutoff"));
  knob.setMidiMapMessage({{0xb0, 74}});
  EXPECT_TRUE(bench.key(Key::backspace));
  EXPECT_THAT(owner.take(), testing::ElementsAre("delete cutoff"));
}

TEST_F(MidiMapBadgeTest, EachKnobOfAGroupIsLearnedByItself) {
  MultipleContainer group;
  show(group, {"bass", "high"}, {0, 0, 200, 100});
  group.setMidiMappingEnabled(true);
  bench.frame();
  bench.tap({150, 50});
  EXPECT_THAT(owner.take(), testing::ElementsAre("select high"));
  group.subContainer("bass")->setMidiMapMessage({{0xb0, 1}});
  bench.tap({96, 4});
  EXPECT_THAT(owner.take(), testing::ElementsAre("delete bass"));
  group.setParamKeys(support::keys({"bass", "mid", "high"}));
  EXPECT_NE(group.subContainer("mid")->midiMapBadge(), nullptr) << "learn mode is still on";
  group.setMappable(false);
  EXPECT_TRUE(group.subContainer("high")->midiMapBadge()->isHidden());
}

TEST_F(MidiMapBadgeTest, EachValueOfAShapeIsLearnedByItself) {
  for (const auto& kind : support::shapeKinds())
    for (const platform::Rect& frame : {platform::Rect{0, 0, 400, 150}, {0, 0, 120, 220}}) {
      SCOPED_TRACE(kind.name);
      const auto container = kind.shown(0.5f);
      container->setTitle("Title");
      owner.listenTo(*container);
      bench.root().addSubview(*container);
      container->setFrame(frame);
      container->setMidiMappingEnabled(true);
      bench.frame();
      std::vector<platform::Rect> places;
      for (std::size_t i = 0; i < kind.keys().size(); ++i) {
        MidiMapBadge* const badge = container->midiMapBadge(i);
        // Reductions and places that are only shown are nothing to be bound.
        ASSERT_EQ(badge == nullptr, kind.drags[i] == '-' && !container->hasBadge(i));
        if (!badge) continue;
        const platform::Rect place = badge->frame();
        for (const platform::Rect& other : places)
          EXPECT_FALSE(place.inset(1, 1).intersects(other));
        EXPECT_TRUE(container->bounds().inset(-0.01, -0.01).contains(place));
        places.push_back(place);
        bench.tap(place.centre());
        EXPECT_THAT(owner.take(), testing::ElementsAre("select " + kind.keys()[i]));
        container->setMidiMapMessage(i, {{0xb0, static_cast<std::uint8_t>(i)}});
        bench.frame();
        bench.tap({place.maxX() - 4, place.y + 4});
        EXPECT_THAT(owner.take(), testing::ElementsAre("delete " + kind.keys()[i]));
      }
      EXPECT_FALSE(places.empty());
      container->setMidiMapSelected(places.size() - 1, true);
      EXPECT_TRUE(container->midiMapSelected());
      for (std::size_t i = 0; i < places.size(); ++i)
        EXPECT_EQ(container->midiMapSelected(i), i == places.size() - 1);
      container->removeFromSuperview();
    }
}

TEST_F(MidiMapBadgeTest, ABadgeOfSeveralNamesItsValueAndHasTheKeyboardInTurn) {
  FilterViewContainer filter;
  show(filter, {"cutoff", "resonance"}, {0, 0, 300, 150});
  filter.setTitle("Filter");
  filter.setMidiMappingEnabled(true);
  filter.setMidiMapMessage(1, {{0xb0, 71}});
  bench.frame();
  const support::Drawing picture(*filter.midiMapBadge(1));
  EXPECT_TRUE(picture.says("resonance") && picture.says("CC 71 ch 1"));
  EXPECT_EQ(filter.midiMapBadge(1)->accessibility().name, "MIDI Filter, resonance");
  EXPECT_FALSE(support::Drawing(*filter.midiMapBadge(0)).says("CC 71 ch 1"));
  filter.midiMapBadge(1)->becomeFirstResponder();
  EXPECT_TRUE(bench.key(platform::Key::space));
  EXPECT_TRUE(bench.key(platform::Key::deleteForward));
  EXPECT_THAT(owner.take(), testing::ElementsAre("select resonance", "delete resonance"));
  filter.setMidiMappingEnabled(false);
  EXPECT_TRUE(filter.midiMapBadge(0)->isHidden() && filter.midiMapBadge(1)->isHidden());
  EXPECT_TRUE(filter.shape()->isFirstResponder()) << "the keyboard goes back to the control";
}

}  // namespace
}  // namespace kestroui

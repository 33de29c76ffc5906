#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "KestroUI/Container.h"
#include "KestroUI/MidiMapBadge.h"
#include "KestroUI/MultipleContainer.h"
#include "examples/Halden/HaldenAudioUnit.h"
#include "examples/Halden/HaldenDesign.h"
#include "examples/Halden/HaldenPlugin.h"
#include "examples/Halden/HaldenViewController.h"
#include "tests/support/EditorHands.h"
#include "tests/support/TestEditor.h"

namespace halden {
namespace {

/// How often each key is used on one page.
std::map<std::string, int> keysOf(const orvane::Page& page) {
  std::map<std::string, int> keys;
  for (const orvane::UISection& placement : page.sections) {
    const orvane::Section& section = *placement.section;
    if (section.stateParameter) ++keys[*section.stateParameter];
    if (section.feedbackParameter) ++keys[*section.feedbackParameter];
    for (const orvane::UIColumn& column : section.stack) {
      for (const orvane::UIParameter& slot : column.params) {
        ++keys[slot.param];
        for (const auto& sibling : slot.siblings)
          if (sibling) ++keys[*sibling];
      }
    }
  }
  return keys;
}

TEST(HaldenDesignTest, HasAControlForEveryParameterInOnePlaceAndNothingElse) {
  const HaldenDesign design;
  std::map<std::string, int> uses;
  for (const auto& page : design.pages())
    for (const auto& [key, count] : keysOf(*page)) uses[key] += count;
  for (const auto& key : HaldenDesign::foot())
    if (key) ++uses[key->key()];

  const HaldenAudioUnit unit;
  std::set<std::string> described, shown;
  for (const auto& key : design.paramKeys()) {
    EXPECT_TRUE(described.insert(key->key()).second) << key->key();
    EXPECT_TRUE(unit.parameter(key->key())) << key->key();
    const kestroui::ParameterUISettings& settings = key->settings();
    // One without a control is driven by that of another.
    const bool hasControl =
        settings.container || settings.controlType != kestroui::ControlType::none;
    EXPECT_EQ(uses[key->key()], hasControl ? 1 : 0) << key->key();
    if (hasControl) shown.insert(key->key());
    shown.insert(settings.attachedParameters.begin(), settings.attachedParameters.end());
  }
  EXPECT_EQ(described.size(), unit.parametersKeys().size());
  EXPECT_EQ(shown, described);
}

TEST(HaldenDesignTest, FitsItsPages) {
  const auto pages = HaldenDesign().pages();
  ASSERT_GE(pages.size(), 4u);
  for (const auto& page : pages) {
    std::set<std::string> names;
    std::map<std::int64_t, double> widths;
    std::int64_t row = 0;
    for (const orvane::UISection& placement : page->sections) {
      EXPECT_TRUE(names.insert(placement.section->name).second) << placement.section->name;
      EXPECT_TRUE(placement.rowIndex == row || placement.rowIndex == row + 1);
      row = placement.rowIndex;
      widths[row] += placement.horizontalWeightInPage;
    }
    // Both rows end at the same edge.
    for (const auto& [index, width] : widths) EXPECT_EQ(width, page->totalWidth) << page->title();
    EXPECT_EQ(page->totalHeight, 2) << page->title();
  }
}

TEST(HaldenDesignTest, ShowsTheFreeTimeOrTheSyncedOneInTheSamePlace) {
  support::ManualLoop loop;
  HaldenAudioUnit unit;
  HaldenViewController editor;
  editor.setAudioUnit(&unit);
  support::EditorWindow window({1024, 696});
  window.show(editor);
  for (const auto& [sync, free, synced] : {std::tuple{"lfo1Sync", "lfo1Rate", "lfo1Division"},
                                           std::tuple{"lfo2Sync", "lfo2Rate", "lfo2Beats"},
                                           std::tuple{"delaySync", "delayTime", "delayDivision"}}) {
    for (const bool on : {true, false, true}) {
      unit.setParameter(sync, on ? 1 : 0);
      loop.settle();
      EXPECT_EQ(editor.container(free)->isHidden(), on) << free;
      EXPECT_EQ(editor.container(synced)->isHidden(), !on) << synced;
    }
  }
}

TEST(HaldenDesignTest, ControlsStayApartAndInsideOnEveryPageAtEverySize) {
  support::ManualLoop loop;
  HaldenAudioUnit unit;
  HaldenViewController editor;
  editor.setAudioUnit(&unit);
  support::EditorWindow window({1024, 696});
  window.show(editor);
  const auto pages = HaldenDesign().pages();
  for (const platform::Size size :
       {platform::Size{480, 320}, platform::Size{1024, 768}, platform::Size{2560, 1600}}) {
    for (std::size_t i = 0; i < pages.size(); ++i) {
      editor.settingsViewController().setCurrentPage(static_cast<int>(i));
      window.resize(size);
      std::vector<std::pair<std::string, platform::Rect>> placed;
      for (const auto& [key, count] : keysOf(*pages[i])) {
        const auto container = editor.container(key);
        ASSERT_TRUE(container) << key;
        if (container->isHidden()) continue;
        ASSERT_TRUE(container->superview()) << key;
        const platform::Rect frame = container->frameInRoot();
        EXPECT_GT(frame.width, 8) << key;
        EXPECT_GT(frame.height, 8) << key;
        EXPECT_LE(frame.x + frame.width, size.width + 1) << key;
        for (const auto& [other, rect] : placed) {
          // Neighbours share the one point that hides hairlines.
          const double across =
              std::min(frame.x + frame.width, rect.x + rect.width) - std::max(frame.x, rect.x);
          const double down =
              std::min(frame.y + frame.height, rect.y + rect.height) - std::max(frame.y, rect.y);
          EXPECT_FALSE(across > 1.01 && down > 1.01) << key << " over " << other;
        }
        placed.emplace_back(key, frame);
      }
    }
  }
}

TEST(HaldenDesignTest, AKeyInTwoPlacesShowsItsBindingAndItsSelectionInBoth) {
  support::EditorHands hands(pluginEntry());
  auto& editor = hands.host.editor();
  const auto select = [&](const std::string& key) {
    const auto container = editor.container(key);
    container->delegate->didSelectMidiMap(container->key(), container.get());
  };
  editor.setMidiMappingEnabled(true);
  hands.host.midiLearn().bind("cutoff", {0xb0, 74});
  select("cutoff");
  const auto shown = [&] {
    std::vector<kestroui::Container*> containers;
    hands.visitShown(hands.host.rootView(), [&](toolkit::View& view) {
      auto* container = dynamic_cast<kestroui::Container*>(&view);
      if (container && container->key() && container->key()->key() == "cutoff")
        containers.push_back(container);
    });
    return containers;
  };
  hands.showPage(2);
  ASSERT_EQ(shown().size(), 2u);
  for (const kestroui::Container* container : shown()) {
    EXPECT_TRUE(container->midiMapMessage());
    EXPECT_TRUE(container->midiMapSelected());
  }
  hands.host.midiLearn().remove("cutoff");
  select("volume");
  for (const kestroui::Container* container : shown()) {
    EXPECT_FALSE(container->midiMapMessage());
    EXPECT_FALSE(container->midiMapSelected());
  }
}

TEST(HaldenDesignTest, EveryParameterThatAControlMovesIsLearnedFromThatControl) {
  support::EditorHands hands(pluginEntry());
  auto& editor = hands.host.editor();
  std::set<std::string> shown, learnt;
  for (const auto& [own, container] : editor.controls().controls())
    for (std::size_t i = 0; i < container->paramKeys().size(); ++i) {
      shown.insert(container->paramKeys()[i]->key());
      if (container->hasBadge(i) || dynamic_cast<kestroui::MultipleContainer*>(container.get()))
        learnt.insert(container->paramKeys()[i]->key());
    }
  std::vector<std::string> left;
  std::set_difference(shown.begin(), shown.end(), learnt.begin(), learnt.end(),
                      std::back_inserter(left));
  // Lights and numbers that nobody moves.
  EXPECT_THAT(left, testing::ElementsAre("clipLight", "levelLight", "lfo1Light", "lfo2Light",
                                         "voiceCount"));
  EXPECT_GT(learnt.size(), 120u);
}

TEST(HaldenDesignTest, TheSecondValueOfAHandleIsBoundAndUnboundAtItsControl) {
  support::EditorHands hands(pluginEntry());
  orvane::MidiLearn& learn = hands.host.midiLearn();
  hands.showPage(2);
  const auto filter = hands.host.editor().container("cutoff");
  const auto parts = hands.host.editor().container("filterDrive");
  const auto tap = [&](const toolkit::View& view) { hands.host.tap(view.frameInRoot().centre()); };
  learn.setLearning(true);
  hands.loop.advance(0.1);
  tap(*filter->midiMapBadge(1));
  learn.receive(std::vector<std::uint8_t>{0xb0, 71, 5});
  learn.poll();
  EXPECT_EQ(learn.bindings(), (orvane::MidiLearn::Bindings{{"resonance", {0xb0, 71}}}));
  EXPECT_TRUE(filter->midiMapMessage(1) && parts->midiMapMessage(2)) << "wherever it is shown";
  EXPECT_FALSE(filter->midiMapMessage(0));
  learn.receive(std::vector<std::uint8_t>{0xb0, 71, 127});
  EXPECT_EQ(hands.host.audioUnit().parameter("resonance")->value(), 100);
  tap(filter->midiMapBadge(1)->deleteButton());
  EXPECT_TRUE(learn.bindings().empty());
  EXPECT_FALSE(filter->midiMapMessage(1) || parts->midiMapMessage(2));
}

TEST(HaldenPluginTest, MakesItsParts) {
  const orvane::PluginEntry& entry = pluginEntry();
  EXPECT_EQ(&entry, &pluginEntry());
  EXPECT_EQ(entry.identifier, entry.createViewController()->productId());
  const auto unit = entry.createAudioUnit();
  EXPECT_TRUE(unit->acceptsMidi());
  EXPECT_GE(unit->parametersKeys().size(), 48u);
  EXPECT_EQ(unit->currentPresetName(), "Init");
}

}  // namespace
}  // namespace halden

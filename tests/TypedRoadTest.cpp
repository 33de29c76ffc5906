// Every value that a double tap reaches in the examples, by way of the value panel.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "Orvane/ControlBuilder.h"
#include "Orvane/ParameterMapping.h"
#include "examples/Gallery/GalleryPlugin.h"
#include "examples/Halden/HaldenPlugin.h"
#include "examples/Selvik/SelvikPlugin.h"
#include "tests/support/EditorHands.h"

namespace {

using platform::AUParameter;

/// Double-taps what it finds on the pages and types what the panel offers, value after value.
struct Typist : support::EditorHands {
  using EditorHands::EditorHands;

  void typeEverything() {
    for (int page = 0; page < pageCount(); ++page) {
      showPage(page);
      for (const auto& [key, container] : host.editor().controls().controls())
        for (std::size_t i = 0; i < container->paramKeys().size(); ++i)
          if (container->isShown()) typeAt(*container, i);
    }
  }
  void typeAt(kestroui::Container& container, std::size_t index) {
    const platform::Point place =
        container.handlePlace(index).value_or(container.bounds().centre());
    orvane::EnterValueOverlay& panel = host.editor().enterValueOverlay();
    for (std::size_t next = 0; next == 0 || next < panel.entries().size(); ++next) {
      host.doubleTap(container.convertToRoot(place));
      if (panel.isHidden()) {
        // A list has opened, say.
        press(platform::Key::escape);
        return;
      }
      for (std::size_t step = 0; step < next; ++step) press(platform::Key::down);
      type(orvane::ControlBuilder::parameterKey(container, host.editor().doubleTappedKey()->key()));
    }
  }
  void type(const std::string& key) {
    orvane::EnterValueOverlay& panel = host.editor().enterValueOverlay();
    AUParameter* const parameter = host.editor().parameters()[key];
    ASSERT_NE(parameter, nullptr) << key;
    const float before = parameter->value();
    const std::string shown = parameter->stringFromValue(before);
    const std::string offered = panel.textField().placeholder();
    EXPECT_TRUE(panel.textField().accessibility().name.ends_with(", now " + offered)) << key;
    parameter->setValue(parameter->minValue());
    panel.textField().setText(offered);
    panel.handleTouchDown(panel.okButton());
    EXPECT_EQ(parameter->stringFromValue(parameter->value()), shown) << key << ": " << offered;
    EXPECT_NEAR(parameter->value(), before, 1e-4 * std::max(1.0f, std::abs(before))) << key;
    EXPECT_TRUE(panel.isHidden());
    typed.insert(key);
  }
  std::set<std::string> typed;
};

TEST(TypedRoadTest, WhatThePanelOffersIsWhatItTakesBack) {
  for (const auto* entry :
       {&gallery::pluginEntry(), &halden::pluginEntry(), &selvik::pluginEntry()})
    for (const float share : {0.0f, 0.137f, 0.77f, 1.0f}) {
      Typist typist(*entry);
      for (AUParameter* parameter : typist.host.audioUnit().parameterTree().allParameters())
        parameter->setValue(orvane::ParameterMapping(*parameter).valueAt(share));
      typist.loop.runDue();
      typist.typeEverything();
      EXPECT_GE(typist.typed.size(), entry->name == "Halden" ? 60u : 8u) << entry->name;
      // At the ends the handles of the two filters lie on each other.
      if (entry->name == "Gallery" && share > 0 && share < 1) {
        for (const char* key : {"filter", "filterResonance", "bandHighResonance", "bandLow"})
          EXPECT_TRUE(typist.typed.contains(key)) << key;
      }
    }
}

TEST(TypedRoadTest, TheValueMeantAtAPlaceIsThatOfTheNearestHandle) {
  Typist typist(gallery::pluginEntry());
  std::set<std::string> meant;
  for (int page = 0; page < typist.pageCount(); ++page) {
    typist.showPage(page);
    for (const auto& [key, container] : typist.host.editor().controls().controls()) {
      if (!container->isShown() || container->key() != key) continue;
      if (!container->handlePlace(0)) {
        EXPECT_EQ(container->keyAt({1, 1}), key) << key->key();
      }
      for (std::size_t i = 0; i < container->paramKeys().size(); ++i) {
        const auto handle = container->handlePlace(i);
        if (!handle) continue;
        const auto found = container->keyAt(*handle);
        EXPECT_EQ(container->handlePlace(*container->indexOf(found->key())), handle)
            << key->key() << i;
        meant.insert(found->key());
      }
    }
  }
  EXPECT_GE(meant.size(), 25u);
}

TEST(TypedRoadTest, TheHeadingNamesTheValueAndNotTheGroup) {
  Typist typist(gallery::pluginEntry());
  const auto headings = [&](int page, const std::string& key, std::size_t index) {
    typist.showPage(page);
    const auto container = typist.host.editor().container(key);
    const platform::Point place =
        container->handlePlace(index).value_or(container->bounds().centre());
    typist.host.doubleTap(container->convertToRoot(place));
    std::string names;
    for (const auto& entry : typist.host.editor().enterValueOverlay().entries())
      names += entry.name + "|";
    typist.press(platform::Key::escape);
    return names;
  };
  EXPECT_EQ(headings(0, "knob", 0), "Knob|");
  EXPECT_EQ(headings(1, "filter", 1), "Cutoff|Resonance|");
  EXPECT_EQ(headings(1, "bandHigh", 0), "Low pass|Resonance|") << "not Band";
  EXPECT_EQ(headings(1, "attack", 0), "Attack|") << "not Envelope";
  EXPECT_EQ(headings(1, "attack", 3), "Release|");
}

}  // namespace

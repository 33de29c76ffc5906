#include "KestroUI/ControlType.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "KestroUI/Icons.h"

namespace kestroui {
namespace {

TEST(ControlTypeTest, everyKindHasANameOfItsOwnThatLeadsBack) {
  std::set<std::string> names;
  for (int i = 0; i < controlTypeCount; ++i) {
    const auto type = static_cast<ControlType>(i);
    EXPECT_TRUE(names.insert(std::string(rawValue(type))).second) << i;
    EXPECT_EQ(controlTypeFromRawValue(rawValue(type)), type);
  }
  EXPECT_EQ(names.count(""), 0u);
}

TEST(ControlTypeTest, placesAndNamesThatPluginsRelyOnStay) {
  const std::pair<int, std::string_view> known[] = {
      {0, "none"},          {3, "filter"},   {8, "radioButtons"}, {16, "radioWaveForm"},
      {17, "dropdownList"}, {29, "mutable"}, {37, "led"}};
  for (const auto& [place, name] : known)
    EXPECT_EQ(rawValue(static_cast<ControlType>(place)), name);
  EXPECT_EQ(rawValue(static_cast<ControlType>(38)), "");
  EXPECT_FALSE(controlTypeFromRawValue(""));
  EXPECT_FALSE(controlTypeFromRawValue("Knob"));
}

TEST(IconsTest, waveformsAreKnownByTheNamesThatParametersUse) {
  using Icons::Waveform;
  const std::pair<std::string_view, std::optional<Waveform>> cases[] = {
      {"Sine", Waveform::sine},         {"SAW", Waveform::saw},
      {"Saw Up", Waveform::ramp},       {"square wave", Waveform::square},
      {"S&H", Waveform::sampleAndHold}, {"White noise", Waveform::noise},
      {"Shape", std::nullopt},          {"", std::nullopt},
      {"LP 24", std::nullopt},
  };
  for (const auto& [name, waveform] : cases)
    EXPECT_EQ(Icons::waveformNamed(name), waveform) << name;
}

TEST(IconsTest, picturesGoByTheirFileNames) {
  for (std::string_view name : {"presets.png", "smallCross.png", "kestro_centered.png", "help.png",
                                "like.png", "contact.png", "cloud.png", "cloud"})
    EXPECT_FALSE(Icons::image(name).isEmpty()) << name;
  EXPECT_TRUE(Icons::image("nothing.png").isEmpty());
}

}  // namespace
}  // namespace kestroui

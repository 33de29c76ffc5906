// Sound as it is now, recordings, and what moves over them.

#include <string>

#include "examples/Gallery/GalleryPage.h"

namespace gallery {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;

GalleryPage displaysPage() {
  GalleryPage page;
  page.parameters = {
      {.key = "scope",
       .displayName = "Time",
       .minValue = 1,
       .maxValue = 40,
       .defaultValue = 24,
       .unit = AudioUnitParameterUnit::milliseconds},
      {.key = "scopes",
       .displayName = "Time",
       .minValue = 1,
       .maxValue = 40,
       .defaultValue = 28,
       .unit = AudioUnitParameterUnit::milliseconds},
      share("sampleStart", "Start", 0.12f),
      share("sampleEnd", "End", 0.82f),
      share("loopStart", "Loop start", 0.3f),
      share("loopEnd", "Loop end", 0.56f),
      share("samplePosition", "Position", 0.45f),
      share("grainPosition", "Position", 0.4f),
      share("grainDensity", "Density", 0.6f),
      share("grainSize", "Size", 0.3f),
      share("grainSpray", "Spray", 0.35f),
      share("grainPitch", "Pitch", 0.5f),
      {.key = "phaserFrequency",
       .displayName = "Frequency",
       .minValue = 50,
       .maxValue = 8000,
       .defaultValue = 700,
       .unit = AudioUnitParameterUnit::hertz,
       .publishesLive = true},
      share("phaserFeedback", "Feedback", 0.55f),
      share("phaserDepth", "Depth", 0.5f),
      {.key = "phaserStages",
       .displayName = "Stages",
       .maxValue = 3,
       .defaultValue = 2,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"4", "6", "8", "12"}},
      share("ribbons", "Turns", 0.4f),
      share("ribbonHeight", "Height", 0.6f),
      share("ribbonDistance", "Distance", 0.5f),
      share("ribbonTwist", "Twist", 0.5f),
      share("ribbonFade", "Fade", 0.6f),
      {.key = "record",
       .displayName = "Record",
       .maxValue = 2,
       .defaultValue = 1,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"Stopped", "Armed", "Running"}},
  };
  for (const char* still : {"sampleStart", "sampleEnd", "loopStart", "loopEnd"})
    for (quillon::ParameterDescription& parameter : page.parameters)
      if (parameter.key == still) parameter.publishesLive = false;
  page.sounds = {{"scope", 1}, {"scopes", 2}};
  page.recordings = {"sampleStart", "grainPosition"};
  for (const quillon::ParameterDescription& parameter : page.parameters)
    page.keys.push_back(key(parameter.key, parameter.displayName, ControlType::none));
  const auto show = [&](const std::shared_ptr<kestroui::ParamKey>& shown) {
    for (auto& existing : page.keys)
      if (existing->key() == shown->key()) existing = shown;
  };
  show(key("scope", "Oscilloscope", ControlType::oscilloscope));
  show(key("scopes", "Left and right", ControlType::multiOscilloscope));
  show(key("sampleStart", "Sample", ControlType::sampleView,
           {"sampleEnd", "loopStart", "loopEnd", "samplePosition"}));
  show(key("grainPosition", "Grains", ControlType::granulizer,
           {"grainDensity", "grainSize", "grainSpray", "grainPitch"}));
  show(key("phaserFrequency", "Phaser", ControlType::phaser,
           {"phaserFeedback", "phaserDepth", "phaserStages"}));
  show(key("ribbons", "Ribbons", ControlType::zorva,
           {"ribbonHeight", "ribbonDistance", "ribbonTwist", "ribbonFade"}));
  show(key("record", "Record", ControlType::rec));

  const auto scopes = section("SCOPES", Colors::moss, {single("scope"), single("scopes")});
  const auto sample =
      section("SAMPLE", Colors::sand, {single("sampleStart", 4), single("record", 1)});
  const auto grains = section("GRAINS", Colors::coral, {single("grainPosition")});
  const auto phaser = section("PHASER", Colors::sky, {single("phaserFrequency")});
  const auto ribbons = section("RIBBONS", Colors::violet, {single("ribbons")});
  page.page =
      std::make_shared<orvane::Page>(std::vector<orvane::UISection>{{scopes, 6, 0, 1, 0},
                                                                    {sample, 6, 0, 1, 0},
                                                                    {grains, 4, 1, 1.1, 0},
                                                                    {phaser, 4, 1, 1.1, 0},
                                                                    {ribbons, 4, 1, 1.1, 0}},
                                     "DISPLAYS");
  return page;
}

}  // namespace gallery

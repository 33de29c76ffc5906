// Steps that are drawn, and pads.

#include <string>

#include "examples/Gallery/GalleryPage.h"

namespace gallery {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;

GalleryPage sequencesPage() {
  GalleryPage page;
  const auto add = [&](quillon::ParameterDescription parameter) {
    page.keys.push_back(key(parameter.key, parameter.displayName, ControlType::none));
    page.parameters.push_back(std::move(parameter));
    return page.parameters.back().key;
  };
  const auto show = [&](const std::shared_ptr<kestroui::ParamKey>& shown) {
    for (auto& existing : page.keys)
      if (existing->key() == shown->key()) existing = shown;
  };

  const float notes[] = {0, 7, 12, 3, 0, -5, 7, 10, 12, 5, -12, 0, 3, 7, -2, 5};
  std::vector<std::string> steps;
  for (std::size_t i = 0; i < std::size(notes); ++i)
    steps.push_back(add({.key = "step" + std::to_string(i + 1),
                         .displayName = "Step " + std::to_string(i + 1),
                         .minValue = -12,
                         .maxValue = 12,
                         .defaultValue = notes[i],
                         .unit = AudioUnitParameterUnit::relativeSemiTones,
                         .publishesLive = i == 0}));
  page.playheads.push_back({steps.front(), static_cast<int>(steps.size())});
  show(key(steps.front(), "Notes", ControlType::stepSequencer, {steps.begin() + 1, steps.end()}));

  const float levels[] = {0.2f, 0.5f, 0.9f, 0.75f, 0.4f, 0.15f, 0.35f, 0.8f};
  std::vector<std::string> points;
  for (std::size_t i = 0; i < std::size(levels); ++i) {
    quillon::ParameterDescription point =
        share("point" + std::to_string(i + 1), "Point " + std::to_string(i + 1), levels[i]);
    point.publishesLive = i == 0;
    points.push_back(add(point));
  }
  page.playheads.push_back({points.front(), static_cast<int>(points.size())});
  show(key(points.front(), "Glide", ControlType::curveSequencer,
           {points.begin() + 1, points.end()}));

  add(share("padX", "X", 0.35f));
  add(share("padY", "Y", 0.6f));
  show(key("padX", "Pad", ControlType::xyControl, {"padY"}));
  add(share("stopX", "Speed", 0.7f));
  add(share("stopY", "Depth", 0.4f));
  add({.key = "stopOnOff", .displayName = "On", .unit = AudioUnitParameterUnit::boolean});
  add({.key = "stopHold", .displayName = "Hold", .unit = AudioUnitParameterUnit::boolean});
  show(key("stopX", "Time stop", ControlType::timeStopXY, {"stopY", "stopOnOff", "stopHold"}));

  const auto stepSection = section("STEPS", Colors::moss, {single(steps.front())});
  const auto glide = section("GLIDE", Colors::sky, {single(points.front())});
  const auto pad = section("PAD", Colors::rose, {single("padX")});
  const auto stop = section("TIME STOP", Colors::coral, {single("stopX")});
  page.page =
      std::make_shared<orvane::Page>(std::vector<orvane::UISection>{{stepSection, 12, 0, 1.2, 0},
                                                                    {glide, 5, 1, 1.2, 0},
                                                                    {pad, 3, 1, 1.2, 0},
                                                                    {stop, 4, 1, 1.2, 0}},
                                     "SEQUENCES");
  return page;
}

}  // namespace gallery

// The kinds of one value: what turns, switches, chooses and tells.

#include "examples/Gallery/GalleryPage.h"

namespace gallery {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;

GalleryPage simplePage() {
  GalleryPage page;
  page.parameters = {
      share("slider", "Slider", 0.6f),
      {.key = "knob",
       .displayName = "Knob",
       .minValue = 20,
       .maxValue = 20000,
       .defaultValue = 2400,
       .unit = AudioUnitParameterUnit::hertz,
       .publishesLive = true},
      {.key = "pan",
       .displayName = "Pan",
       .minValue = -1,
       .maxValue = 1,
       .defaultValue = -0.35f,
       .unit = AudioUnitParameterUnit::pan},
      {.key = "waveformKnob",
       .displayName = "Shape",
       .maxValue = 4,
       .defaultValue = 1,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"Sine", "Triangle", "Saw", "Square", "Noise"}},
      {.key = "low",
       .displayName = "Low",
       .minValue = -12,
       .maxValue = 12,
       .defaultValue = 4,
       .unit = AudioUnitParameterUnit::decibels,
       .publishesLive = true},
      {.key = "middle",
       .displayName = "Mid",
       .minValue = -12,
       .maxValue = 12,
       .defaultValue = -3,
       .unit = AudioUnitParameterUnit::decibels},
      {.key = "high",
       .displayName = "High",
       .minValue = -12,
       .maxValue = 12,
       .unit = AudioUnitParameterUnit::decibels},
      {.key = "onOff",
       .displayName = "On",
       .defaultValue = 1,
       .unit = AudioUnitParameterUnit::boolean},
      {.key = "rec", .displayName = "Record", .unit = AudioUnitParameterUnit::boolean},
      {.key = "radio",
       .displayName = "Mode",
       .maxValue = 2,
       .defaultValue = 1,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"Poly", "Mono", "Legato"}},
      {.key = "wave",
       .displayName = "Wave",
       .maxValue = 3,
       .defaultValue = 2,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"Sine", "Triangle", "Saw", "Square"}},
      {.key = "stepper",
       .displayName = "Octave",
       .minValue = -3,
       .maxValue = 3,
       .unit = AudioUnitParameterUnit::indexed},
      {.key = "dropdown",
       .displayName = "Division",
       .maxValue = 5,
       .defaultValue = 2,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"1/1", "1/2", "1/4", "1/8", "1/16", "1/32"}},
      {.key = "flags",
       .displayName = "Voices",
       .maxValue = 15,
       .defaultValue = 5,
       .unit = AudioUnitParameterUnit::indexed},
      {.key = "button", .displayName = "Reset", .unit = AudioUnitParameterUnit::boolean},
      {.key = "label",
       .displayName = "Tempo",
       .minValue = 20,
       .maxValue = 300,
       .defaultValue = 120,
       .unit = AudioUnitParameterUnit::bpm},
      share("led", "Level", 0.7f),
  };
  page.keys = {
      key("slider", "Slider", ControlType::slider),
      key("knob", "Knob", ControlType::knob),
      key("pan", "Pan", ControlType::knob),
      key("waveformKnob", "Shape", ControlType::waveformKnob),
      key("low", "Low", ControlType::multiple, {"middle", "high"}),
      key("middle", "Mid", ControlType::none),
      key("high", "High", ControlType::none),
      key("onOff", "On", ControlType::onOff),
      key("rec", "Record", ControlType::rec),
      key("radio", "Mode", ControlType::radioButtons),
      key("wave", "Wave", ControlType::radioWaveForm),
      key("stepper", "Octave", ControlType::stepper),
      key("dropdown", "Division", ControlType::dropdownList),
      key("flags", "Voices", ControlType::bitFlagsGroup, {"1", "2", "3", "4"}),
      key("button", "Reset", ControlType::simpleButton),
      key("label", "Tempo", ControlType::simpleLabel),
      key("led", "Level", ControlType::led),
  };
  const auto turning = section("TURN AND SLIDE", Colors::sand,
                               {single("slider", 0.7), single("knob"), single("pan"),
                                single("waveformKnob"), single("low", 2.4)});
  const auto choosing =
      section("CHOOSE", Colors::teal,
              {stacked({"radio", "wave"}), stacked({"stepper", "dropdown"}), single("flags", 0.8)});
  const auto switching =
      section("SWITCH", Colors::coral, {single("onOff"), single("rec"), single("button")});
  const auto telling = section("TELL", Colors::sky, {single("label"), single("led", 0.6)});
  page.page =
      std::make_shared<orvane::Page>(std::vector<orvane::UISection>{{turning, 12, 0, 1, 0},
                                                                    {choosing, 6, 1, 1, 0},
                                                                    {switching, 3.6, 1, 1, 0},
                                                                    {telling, 2.4, 1, 1, 0}},
                                     "SIMPLE");
  return page;
}

}  // namespace gallery

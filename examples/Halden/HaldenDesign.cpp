#include "examples/Halden/HaldenDesign.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

namespace halden {
namespace {

using kestroui::ControlType;
using kestroui::ParamKey;
using orvane::Page;
using orvane::Section;
using orvane::UIColumn;
using orvane::UIParameter;
using orvane::UISection;
using platform::Color;

namespace Colors {
constexpr Color sand = Color::rgb(0xe8b66b);
constexpr Color coral = Color::rgb(0xe78873);
constexpr Color moss = Color::rgb(0x9cc27a);
constexpr Color ash = Color::rgb(0xa9b4c4);
constexpr Color sky = Color::rgb(0x74b3e8);
constexpr Color violet = Color::rgb(0xb394ec);
constexpr Color rose = Color::rgb(0xe58bb2);
constexpr Color teal = Color::rgb(0x4fc1b6);
}  // namespace Colors

constexpr Color volumeColor = Colors::sand;

/// One control that fills its column.
UIColumn single(std::string key, double weight = 1) {
  return {{{std::move(key), {}, 1, 0, 1}}, weight};
}

/// A column for each key.
std::vector<UIColumn> row(std::initializer_list<const char*> keys) {
  std::vector<UIColumn> columns;
  for (const char* key : keys) columns.push_back(single(key));
  return columns;
}

/// A group of buttons, with some air to its right.
UIColumn buttons(std::string key, double weight) {
  return {{{std::move(key), {}, 1, 0, 0.94}}, weight};
}

/// A time and the switch that ties it to the tempo; the two forms of the time share one place.
std::vector<UIColumn> timeColumns(std::string free, std::string synced, std::string sync) {
  return {{{{std::move(free), {std::move(synced)}, 1, 0, 1}}, 1},
          {{{std::move(sync), {}, 0.5, 0.26, 1}}, 0.5}};
}

std::shared_ptr<Section> section(std::string name, Color color, std::vector<UIColumn> columns,
                                 std::optional<std::string> state = std::nullopt,
                                 std::optional<std::string> feedback = std::nullopt) {
  return std::make_shared<Section>(std::move(columns), std::move(name), color, std::move(state),
                                   std::move(feedback), false, true);
}

std::vector<UIColumn> operator+(std::vector<UIColumn> left, std::vector<UIColumn> right) {
  for (UIColumn& column : right) left.push_back(std::move(column));
  return left;
}

std::shared_ptr<Page> oscillatorPage() {
  const auto first = section("OSCILLATOR 1", Colors::sand,
                             {buttons("osc1Wave", 2), single("osc1Octave"), single("osc1Fine"),
                              single("osc1Width"), single("osc1Level"), single("osc1Pan")});
  const auto second = section("OSCILLATOR 2", Colors::coral,
                              {buttons("osc2Wave", 2), single("osc2Semi"), single("osc2Fine"),
                               single("osc2Width"), single("osc2Level"), single("osc2Pan")},
                              "osc2On");
  return std::make_shared<Page>(
      std::vector<UISection>{{first, 7, 0, 1, 0},
                             {section("SUB", Colors::moss, row({"subLevel"})), 1, 0, 1, 0},
                             {second, 7, 1, 1, 0},
                             {section("NOISE", Colors::ash, row({"noiseLevel"})), 1, 1, 1, 0}},
      "OSC");
}

std::shared_ptr<Page> voicePage() {
  const auto unison = section("UNISON", Colors::sky,
                              row({"unisonVoices", "unisonDetune", "unisonSpread"}), "unisonOn");
  const auto fm = section("FREQUENCY MODULATION", Colors::violet, row({"fmAmount", "fmRatio"}));
  const auto touch =
      section("TOUCH", Colors::rose, row({"velocityLevel", "velocityCutoff", "pressureCutoff"}));
  const auto pitch = section("PITCH", Colors::sand, row({"bendRange", "tune"}));
  return std::make_shared<Page>(
      std::vector<UISection>{
          {unison, 3, 0, 1, 0}, {fm, 2, 0, 1, 0}, {touch, 3, 1, 1, 0}, {pitch, 2, 1, 1, 0}},
      "VOICE");
}

std::shared_ptr<Page> filterPage() {
  const auto filter =
      section("FILTER", Colors::teal,
              std::vector<UIColumn>{buttons("filterType", 3)} +
                  row({"cutoff", "resonance", "filterEnvelope", "keytrack", "filterDrive"}),
              "filterOn");
  const auto filterEnvelope =
      section("FILTER ENVELOPE", Colors::sky,
              row({"filterAttack", "filterDecay", "filterSustain", "filterRelease"}));
  const auto ampEnvelope = section("AMP ENVELOPE", Colors::moss,
                                   row({"ampAttack", "ampDecay", "ampSustain", "ampRelease"}),
                                   std::nullopt, "levelLight");
  return std::make_shared<Page>(
      std::vector<UISection>{
          {filter, 8, 0, 1, 0}, {filterEnvelope, 4, 1, 1, 0}, {ampEnvelope, 4, 1, 1, 0}},
      "FILTER");
}

std::shared_ptr<Page> modulationPage() {
  const auto first =
      section("LFO 1", Colors::violet,
              row({"lfo1Wave"}) + timeColumns("lfo1Rate", "lfo1Division", "lfo1Sync") +
                  row({"lfo1Phase", "lfo1Cutoff", "lfo1Width", "lfo1Level"}),
              "lfo1On", "lfo1Light");
  const auto second = section("LFO 2", Colors::sky,
                              row({"lfo2Wave"}) + timeColumns("lfo2Rate", "lfo2Beats", "lfo2Sync") +
                                  row({"lfo2Fade", "lfo2Pitch", "lfo2Pan", "wheelVibrato"}),
                              "lfo2On", "lfo2Light");
  return std::make_shared<Page>(std::vector<UISection>{{first, 1, 0, 1, 0}, {second, 1, 1, 1, 0}},
                                "MOD");
}

std::shared_ptr<Page> effectsPage() {
  const auto drive = section("DRIVE", Colors::coral, row({"driveAmount", "driveTone", "driveMix"}),
                             "driveOn", "clipLight");
  const auto chorus =
      section("CHORUS", Colors::teal, row({"chorusRate", "chorusDepth", "chorusMix"}), "chorusOn");
  const auto delay = section("DELAY", Colors::moss,
                             timeColumns("delayTime", "delayDivision", "delaySync") +
                                 row({"delayFeedback", "delayTone", "delayMix"}),
                             "delayOn");
  const auto reverb =
      section("REVERB", Colors::violet,
              row({"reverbPredelay", "reverbDecay", "reverbTone", "reverbMix"}), "reverbOn");
  return std::make_shared<Page>(
      std::vector<UISection>{
          {drive, 3, 0, 1, 0}, {delay, 4, 0, 1, 0}, {chorus, 3, 1, 1, 0}, {reverb, 4, 1, 1, 0}},
      "FX");
}

std::shared_ptr<ParamKey> key(std::string name, std::string title,
                              ControlType type = ControlType::knob,
                              std::optional<Color> color = std::nullopt) {
  return std::make_shared<ParamKey>(
      std::move(name), kestroui::ParameterUISettings(std::move(title), type, {}, false, {},
                                                     {false, false}, {}, color));
}

}  // namespace

std::vector<std::shared_ptr<Page>> HaldenDesign::pages() const {
  return {oscillatorPage(), voicePage(), filterPage(), modulationPage(), effectsPage()};
}

std::vector<std::shared_ptr<ParamKey>> HaldenDesign::foot() {
  return {key("volume", "Volume", ControlType::knob, volumeColor),
          key("glide", "Glide", ControlType::knob, volumeColor),
          key("voiceMode", "Mode", ControlType::radioButtons, volumeColor),
          nullptr,
          key("voiceCount", "Voices", ControlType::simpleLabel),
          key("panic", "Panic", ControlType::simpleButton, Colors::coral)};
}

std::vector<std::shared_ptr<ParamKey>> HaldenDesign::paramKeys() const {
  std::vector<std::shared_ptr<ParamKey>> keys{
      key("osc1Wave", "Wave", ControlType::radioWaveForm),
      key("osc1Octave", "Octave", ControlType::stepper),
      key("osc1Fine", "Fine"),
      key("osc1Width", "Width"),
      key("osc1Level", "Level"),
      key("osc1Pan", "Pan"),
      key("subLevel", "Level"),
      key("osc2On", "", ControlType::onOff),
      key("osc2Wave", "Wave", ControlType::radioWaveForm),
      key("osc2Semi", "Semitones", ControlType::stepper),
      key("osc2Fine", "Fine"),
      key("osc2Width", "Width"),
      key("osc2Level", "Level"),
      key("osc2Pan", "Pan"),
      key("noiseLevel", "Level"),

      key("unisonOn", "", ControlType::onOff),
      key("unisonVoices", "Voices", ControlType::stepper),
      key("unisonDetune", "Detune"),
      key("unisonSpread", "Spread"),
      key("fmAmount", "Amount"),
      key("fmRatio", "Ratio"),
      key("velocityLevel", "Velocity > Level"),
      key("velocityCutoff", "Velocity > Cutoff"),
      key("pressureCutoff", "Pressure > Cutoff"),
      key("bendRange", "Bend range", ControlType::stepper),
      key("tune", "Tune"),

      key("filterOn", "", ControlType::onOff),
      key("filterType", "Type", ControlType::radioButtons),
      key("cutoff", "Cutoff"),
      key("resonance", "Resonance"),
      key("filterEnvelope", "Envelope"),
      key("keytrack", "Keytrack"),
      key("filterDrive", "Drive"),
      key("filterAttack", "Attack", ControlType::slider),
      key("filterDecay", "Decay", ControlType::slider),
      key("filterSustain", "Sustain", ControlType::slider),
      key("filterRelease", "Release", ControlType::slider),
      key("ampAttack", "Attack", ControlType::slider),
      key("ampDecay", "Decay", ControlType::slider),
      key("ampSustain", "Sustain", ControlType::slider),
      key("ampRelease", "Release", ControlType::slider),
      key("levelLight", "", ControlType::led),

      key("lfo1On", "", ControlType::onOff),
      key("lfo1Light", "", ControlType::led),
      key("lfo1Wave", "Wave", ControlType::waveformKnob),
      key("lfo1Rate", "Rate"),
      key("lfo1Division", "Rate", ControlType::dropdownList),
      key("lfo1Sync", "Sync", ControlType::onOff),
      key("lfo1Phase", "Phase"),
      key("lfo1Cutoff", "Cutoff"),
      key("lfo1Width", "Width"),
      key("lfo1Level", "Level"),
      key("lfo2On", "", ControlType::onOff),
      key("lfo2Light", "", ControlType::led),
      key("lfo2Wave", "Wave", ControlType::waveformKnob),
      key("lfo2Rate", "Rate"),
      key("lfo2Beats", "Rate", ControlType::stepper),
      key("lfo2Sync", "Sync", ControlType::onOff),
      key("lfo2Fade", "Fade-in"),
      key("lfo2Pitch", "Pitch"),
      key("lfo2Pan", "Pan"),
      key("wheelVibrato", "Wheel > Pitch"),

      key("driveOn", "", ControlType::onOff),
      key("clipLight", "", ControlType::led, Colors::coral),
      key("driveAmount", "Amount"),
      key("driveTone", "Tone"),
      key("driveMix", "Mix"),
      key("chorusOn", "", ControlType::onOff),
      key("chorusRate", "Rate"),
      key("chorusDepth", "Depth"),
      key("chorusMix", "Mix"),
      key("delayOn", "", ControlType::onOff),
      key("delayTime", "Time"),
      key("delayDivision", "Time", ControlType::dropdownList),
      key("delaySync", "Sync", ControlType::onOff),
      key("delayFeedback", "Feedback"),
      key("delayTone", "Tone"),
      key("delayMix", "Mix"),
      key("reverbOn", "", ControlType::onOff),
      key("reverbPredelay", "Pre-delay"),
      key("reverbDecay", "Decay"),
      key("reverbTone", "Tone"),
      key("reverbMix", "Mix"),
  };
  for (const auto& footKey : foot()) {
    if (footKey) keys.push_back(footKey);
  }
  return keys;
}

}  // namespace halden

#include "examples/Halden/HaldenDesign.h"

#include <string>
#include <utility>

#include "KestroUI/DisplayContainers.h"
#include "KestroUI/ShapeContainers.h"
#include "KestroUI/XYControlContainer.h"
#include "Orvane/AUFilterViewContainer.h"
#include "examples/Halden/HaldenColors.h"
#include "examples/Halden/MonitorContainer.h"

namespace halden {
namespace {

using kestroui::ControlType;
using kestroui::ParamKey;
using platform::Color;

std::shared_ptr<ParamKey> key(std::string name, std::string title,
                              ControlType type = ControlType::knob,
                              std::vector<std::string> attached = {}) {
  kestroui::ParameterUISettings settings;
  settings.displayName = std::move(title);
  settings.controlType = type;
  settings.attachedParameters = std::move(attached);
  return std::make_shared<ParamKey>(std::move(name), std::move(settings));
}

/// One whose colour is not its section's.
std::shared_ptr<ParamKey> colored(std::string name, std::string title, ControlType type,
                                  Color color) {
  kestroui::ParameterUISettings settings;
  settings.displayName = std::move(title);
  settings.controlType = type;
  settings.controlColor = color;
  return std::make_shared<ParamKey>(std::move(name), std::move(settings));
}

/// A large control whose section says what it is: without a title of its own.
template <class Kind>
std::shared_ptr<ParamKey> face(std::string name, std::string title,
                               std::vector<std::string> attached) {
  const auto container = std::make_shared<Kind>();
  container->setDisplayTitle(false);
  kestroui::ParameterUISettings settings(std::move(title), container);
  settings.attachedParameters = std::move(attached);
  return std::make_shared<ParamKey>(std::move(name), std::move(settings));
}

/// A parameter that the control of another one drives: its name there, and no control of its own.
std::shared_ptr<ParamKey> part(std::string name, std::string title) {
  return key(std::move(name), std::move(title), ControlType::none);
}

/// Adds the keys of a row of values, "step1" and so on, of which the first has the control.
template <class Kind>
void addRow(std::vector<std::shared_ptr<ParamKey>>& keys, const std::string& name,
            const std::string& title, int count) {
  std::vector<std::string> others;
  for (int i = 2; i <= count; ++i) {
    others.push_back(name + std::to_string(i));
    keys.push_back(part(others.back(), title + " " + std::to_string(i)));
  }
  keys.push_back(face<Kind>(name + "1", title + " 1", std::move(others)));
}

}  // namespace

HaldenDesign::HaldenDesign(std::shared_ptr<MonitorContainer> monitor)
    : monitor_(monitor ? std::move(monitor) : std::make_shared<MonitorContainer>()) {}

std::vector<std::shared_ptr<ParamKey>> HaldenDesign::foot() {
  return {colored("volume", "Volume", ControlType::knob, Colors::sand),
          colored("glide", "Glide", ControlType::knob, Colors::sand),
          colored("voiceMode", "Mode", ControlType::radioButtons, Colors::sand),
          nullptr,
          part("scopeTime", "Time"),
          nullptr,
          key("voiceCount", "Voices", ControlType::simpleLabel),
          colored("panic", "Panic", ControlType::simpleButton, Colors::coral)};
}

std::vector<std::shared_ptr<ParamKey>> HaldenDesign::paramKeys() const {
  std::vector<std::shared_ptr<ParamKey>> keys{
      key("osc1Wave", "Wave", ControlType::radioWaveForm),
      key("osc1Octave", "Octave", ControlType::stepper),
      key("osc1Fine", "Fine"),
      key("osc1Width", "Width"),
      key("osc1Level", "Level"),
      key("osc1Pan", "Pan"),
      key("subLevel", "Level", ControlType::mutableControl, {"subMute"}),
      part("subMute", "Mute"),
      key("osc2On", "", ControlType::onOff),
      key("osc2Wave", "Wave", ControlType::radioWaveForm),
      key("osc2Semi", "Semitones", ControlType::stepper),
      key("osc2Fine", "Fine"),
      key("osc2Width", "Width"),
      key("osc2Level", "Level"),
      key("osc2Pan", "Pan"),
      key("noiseLevel", "Level", ControlType::mutableControl, {"noiseMute"}),
      part("noiseMute", "Mute"),

      key("unisonOn", "", ControlType::onOff),
      key("unisonVoices", "Voices", ControlType::stepper),
      key("unisonDetune", "Detune"),
      key("unisonSpread", "Spread"),
      key("fmAmount", "Amount"),
      key("fmRatio", "Ratio"),
      key("velocityCutoff", "Velocity > Cutoff"),
      key("pressureCutoff", "Pressure > Cutoff"),
      key("bendRange", "Bend range", ControlType::stepper),
      key("tune", "Tune"),

      key("filterOn", "", ControlType::onOff),
      key("filterType", "Type", ControlType::radioButtons),
      face<orvane::AUFilterViewContainer>("cutoff", "Cutoff", {"resonance"}),
      key("filterDrive", "Drive", ControlType::multiple, {"cutoff", "resonance", "keytrack"}),
      part("resonance", "Resonance"),
      part("keytrack", "Keytrack"),
      face<kestroui::ADSRContainer>("filterAttack", "Attack",
                                    {"filterDecay", "filterSustain", "filterRelease"}),
      key("filterEnvelope", "Amount", ControlType::multiple,
          {"filterAttack", "filterDecay", "filterSustain", "filterRelease"}),
      part("filterDecay", "Decay"),
      part("filterSustain", "Sustain"),
      part("filterRelease", "Release"),
      face<kestroui::ADSRContainer>("ampAttack", "Attack",
                                    {"ampDecay", "ampSustain", "ampRelease"}),
      key("velocityLevel", "Velocity", ControlType::multiple,
          {"ampAttack", "ampDecay", "ampSustain", "ampRelease"}),
      part("ampDecay", "Decay"),
      part("ampSustain", "Sustain"),
      part("ampRelease", "Release"),
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

      key("stepsOn", "", ControlType::onOff),
      key("stepsDivision", "Rate", ControlType::dropdownList),
      key("stepsCount", "Steps", ControlType::stepper),
      key("stepsCutoff", "Cutoff"),
      key("stepsPitch", "Pitch"),
      key("stepsGlide", "Glide"),
      key("curveOn", "", ControlType::onOff),
      key("curveDivision", "Rate", ControlType::dropdownList),
      key("curveCount", "Steps", ControlType::stepper),
      key("curveLevel", "Level"),
      key("curveWidth", "Width"),
      key("curvePan", "Pan"),

      key("driveOn", "", ControlType::onOff),
      colored("clipLight", "", ControlType::led, Colors::coral),
      face<kestroui::WaveshaperViewContainer>("driveAmount", "Amount",
                                              {"driveShape", "driveBias", "driveMix"}),
      part("driveShape", "Shape"),
      part("driveBias", "Bias"),
      part("driveMix", "Mix"),
      key("driveTone", "Tone"),
      key("chorusOn", "", ControlType::onOff),
      face<kestroui::XYControlContainer>("chorusRate", "Rate", {"chorusDepth"}),
      part("chorusDepth", "Depth"),
      key("chorusMix", "Mix"),
      key("delayOn", "", ControlType::onOff),
      key("delayTime", "Time"),
      key("delayDivision", "Time", ControlType::dropdownList),
      key("delaySync", "Sync", ControlType::onOff),
      key("delayFeedback", "Feedback"),
      key("delayLowCut", "Range", ControlType::doubleSlider, {"delayTone"}),
      part("delayTone", "High cut"),
      key("delayMix", "Mix"),
      key("reverbOn", "", ControlType::onOff),
      key("reverbPredelay", "Pre-delay"),
      key("reverbDecay", "Decay"),
      key("reverbTone", "Tone"),
      key("reverbMix", "Mix"),
  };
  addRow<kestroui::SimpleCurveContainer>(keys, "velocity", "Velocity", 5);
  addRow<kestroui::StepSequencerContainer>(keys, "step", "Step", 16);
  addRow<kestroui::CurveSequencerContainer>(keys, "curve", "Step", 16);
  for (const auto& footKey : foot())
    if (footKey && footKey->key() != "scopeTime") keys.push_back(footKey);
  kestroui::ParameterUISettings shown("Time", monitor_);
  shown.controlColor = Colors::sky;
  keys.push_back(std::make_shared<ParamKey>("scopeTime", std::move(shown)));
  return keys;
}

}  // namespace halden

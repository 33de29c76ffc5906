#include "examples/Selvik/SelvikAudioUnit.h"

#include <iterator>

#include "examples/Halden/dsp/Divisions.h"

namespace selvik {
namespace {

using Unit = platform::AudioUnitParameterUnit;
using quillon::ParameterDescription;

ParameterDescription number(Param address, std::string key, std::string name, Unit unit,
                            float minimum, float maximum, float standard) {
  return {.key = std::move(key),
          .address = address,
          .displayName = std::move(name),
          .minValue = minimum,
          .maxValue = maximum,
          .defaultValue = standard,
          .unit = unit};
}

std::vector<ParameterDescription> parameterDescriptions() {
  std::vector<ParameterDescription> all{
      number(time, "time", "Time", Unit::milliseconds, 20, 2000, 375),
      number(division, "division", "Division", Unit::indexed, 0, halden::divisions.size() - 1, 7),
      number(sync, "sync", "Sync", Unit::boolean, 0, 1, 1),
      number(feedback, "feedback", "Feedback", Unit::percent, 0, 95, 45),
      number(lowCut, "lowCut", "Low Cut", Unit::hertz, 20, 20000, 160),
      number(highCut, "highCut", "High Cut", Unit::hertz, 20, 20000, 5200),
      number(mix, "mix", "Mix", Unit::percent, 0, 100, 45),
      number(lowPass, "SidechainLowPassFrequency", "Listen Below", Unit::hertz, 20, 20000, 9000),
      number(lowPassResonance, "SidechainLowPassResonance", "Low-pass Resonance", Unit::decibels,
             -12, 24, -3),
      number(highPass, "SidechainHighPassFrequency", "Listen Above", Unit::hertz, 20, 20000, 90),
      number(highPassResonance, "SidechainHighPassResonance", "High-pass Resonance", Unit::decibels,
             -12, 24, -3),
      number(listen, "listen", "Listen", Unit::boolean, 0, 1, 0),
      number(threshold, "threshold", "Threshold", Unit::decibels, -60, 0, -30),
      number(ratio, "ratio", "Ratio", Unit::ratio, 1, 20, 4),
      number(release, "release", "Release", Unit::milliseconds, 20, 1500, 260),
      number(reduction, "reduction", "Reduction", Unit::decibels, 0, 24, 0),
      number(scope, "scope", "Display Time", Unit::milliseconds, 1, 40, 32),
      number(external, "external", "External", Unit::boolean, 0, 1, 0)};
  for (const halden::Division& each : halden::divisions)
    all[division].valueStrings.emplace_back(each.name);
  all[reduction].flags = platform::AudioUnitParameterFlags::readable;
  all[reduction].publishesLive = true;
  for (Param param : {mix, listen, reduction, scope, external}) all[param].randomizable = false;
  return all;
}

constexpr const char* presetKeys[] = {"division",
                                      "feedback",
                                      "lowCut",
                                      "highCut",
                                      "mix",
                                      "SidechainLowPassFrequency",
                                      "SidechainHighPassFrequency",
                                      "threshold",
                                      "ratio",
                                      "release"};

constexpr struct {
  const char *name, *category;
  float values[std::size(presetKeys)];
} presetRows[] = {{"Steps Aside", "vocal", {7, 45, 160, 5200, 45, 9000, 90, -30, 4, 260}},
                  {"Plate Glass", "vocal", {5, 20, 500, 9000, 30, 9000, 200, -34, 3, 180}},
                  {"Slow Reply", "vocal", {8, 55, 200, 3000, 50, 6000, 120, -36, 6, 700}},
                  {"Kick Keeps Clear", "drums", {4, 40, 240, 7000, 40, 140, 35, -26, 12, 140}},
                  {"Snare Shadow", "drums", {2, 30, 300, 6000, 40, 12000, 900, -32, 8, 200}},
                  {"Dub Pier", "drums", {9, 82, 320, 2200, 60, 9000, 60, -24, 3, 400}},
                  {"Long Inlet", "guitar", {10, 50, 140, 3600, 45, 5000, 110, -32, 5, 900}},
                  {"Slap Rock", "guitar", {2, 5, 120, 6500, 35, 9000, 90, -18, 2, 90}},
                  {"Moving Water", "synth", {3, 66, 240, 8000, 55, 9000, 90, -28, 4, 320}},
                  {"Only Afterwards", "synth", {7, 72, 180, 5200, 80, 12000, 40, -44, 12, 320}}};

std::vector<quillon::PresetDescription> presetDescriptions() {
  std::vector<quillon::PresetDescription> all;
  for (const auto& row : presetRows) {
    all.push_back({{static_cast<int>(all.size()), row.name, "FJORD", {row.category}}, {}});
    for (std::size_t i = 0; i < std::size(presetKeys); ++i)
      all.back().values[presetKeys[i]] = row.values[i];
  }
  return all;
}

}  // namespace

SelvikAudioUnit::SelvikAudioUnit()
    : CommonAudioUnit(parameterDescriptions(), presetDescriptions()),
      before_(addLiveBuffer("scope", 4096)),
      after_(addLiveBuffer("scope", 4096)) {
  setCurrentPreset(0);
}

void SelvikAudioUnit::allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) {
  CommonAudioUnit::allocateRenderResources(sampleRate, maximumFrames);
  echo_.setSampleRate(sampleRate);
}

double SelvikAudioUnit::tailSeconds() const {
  const DuckedEcho::Settings now = settings(tempo_);
  if (now.mix == 0) return 0;
  return double{halden::StereoDelay::tailSeconds(now.seconds, now.feedback, now.lowCut, now.highCut,
                                                 static_cast<float>(sampleRate()))};
}

DuckedEcho::Settings SelvikAudioUnit::settings(double tempo) const {
  const float synced = halden::divisionSeconds(static_cast<int>(value(division)), tempo);
  return {.seconds = value(sync) > 0.5f ? synced : value(time) / 1000,
          .feedback = value(feedback) / 100,
          .mix = value(mix) / 100,
          .lowCut = value(lowCut),
          .highCut = value(highCut),
          .lowPass = {value(lowPass), value(lowPassResonance)},
          .highPass = {value(highPass), value(highPassResonance)},
          .threshold = value(threshold),
          .ratio = value(ratio),
          .releaseSeconds = value(release) / 1000,
          .listen = value(listen)};
}

void SelvikAudioUnit::render(const platform::RenderBlock& block) {
  tempo_ = block.transport.tempo;
  if (block.inputs.size() < 2 || block.outputs.size() < 2) return CommonAudioUnit::render(block);
  const auto show = [&](quillon::LiveRing& ring, const float* left, const float* right) {
    for (std::uint32_t i = 0; i < block.frames && isUIVisible(); ++i)
      ring.append(0.5f * (left[i] + right[i]));
  };
  show(before_, block.inputs[0], block.inputs[1]);
  const bool isExternal = value(external) > 0.5f && block.sideChain.size() == 2;
  echo_.process(settings(block.transport.tempo), block.inputs,
                isExternal ? block.sideChain : block.inputs, block.outputs, block.frames);
  show(after_, block.outputs[0], block.outputs[1]);
  publishLive(reduction, echo_.reduction());
}

}  // namespace selvik

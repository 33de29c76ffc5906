#include "examples/Halden/HaldenPresets.h"

#include <map>
#include <string>
#include <utility>

namespace halden {
namespace {

enum Wave { sine, triangle, saw, square, pulse, noise };
enum FilterType { low24, low12, band, high, notch, peak };
enum Mode { poly, mono, legato };
constexpr float on = 1, off = 0;

}  // namespace

std::vector<quillon::PresetDescription> presetDescriptions() {
  std::vector<quillon::PresetDescription> presets;
  const auto add = [&](std::string name, std::string bank, std::vector<std::string> categories,
                       std::map<std::string, float> values) {
    const int number = static_cast<int>(presets.size());
    presets.push_back({{.number = number,
                        .name = std::move(name),
                        .bank = std::move(bank),
                        .categories = std::move(categories)},
                       std::move(values)});
  };

  add("Init", "COAST", {"keys", "init"}, {});

  add("Sea Glass", "COAST", {"pad"},
      {{"osc1Wave", saw},      {"osc1Pan", -0.4f},      {"osc2Wave", pulse},
       {"osc2Semi", 12},       {"osc2Level", -9},       {"osc2Pan", 0.4f},
       {"osc2Width", 35},      {"unisonOn", on},        {"unisonVoices", 4},
       {"unisonDetune", 24},   {"unisonSpread", 90},    {"subLevel", -12},
       {"noiseLevel", -40},    {"cutoff", 620},         {"resonance", 22},
       {"filterEnvelope", 22}, {"filterAttack", 1400},  {"filterDecay", 3800},
       {"filterSustain", 55},  {"filterRelease", 2600}, {"ampAttack", 700},
       {"ampDecay", 3000},     {"ampSustain", 85},      {"ampRelease", 2800},
       {"lfo1Rate", 0.13f},    {"lfo1Cutoff", 6},       {"lfo1Width", 40},
       {"lfo2Pitch", 5},       {"chorusMix", 60},       {"chorusRate", 0.28f},
       {"chorusDepth", 55},    {"delayOn", on},         {"delayDivision", 7},
       {"delayMix", 18},       {"reverbDecay", 5.5f},   {"reverbMix", 42},
       {"velocityLevel", 30},  {"volume", -4}});

  add("Low Tide", "COAST", {"bass"},
      {{"osc1Wave", saw},      {"osc1Octave", -1},    {"osc1Pan", 0},        {"osc2Wave", square},
       {"osc2Semi", -12},      {"osc2Fine", 4},       {"osc2Level", -7},     {"osc2Pan", 0},
       {"subLevel", -6},       {"cutoff", 320},       {"resonance", 34},     {"filterDrive", 12},
       {"filterEnvelope", 34}, {"filterAttack", 1},   {"filterDecay", 520},  {"filterSustain", 25},
       {"filterRelease", 180}, {"ampAttack", 1},      {"ampDecay", 1500},    {"ampSustain", 80},
       {"ampRelease", 140},    {"keytrack", 30},      {"voiceMode", legato}, {"glide", 55},
       {"driveOn", on},        {"driveAmount", 10},   {"driveTone", 4200},   {"chorusOn", off},
       {"reverbMix", 6},       {"reverbDecay", 0.8f}, {"lfo1Cutoff", 0},     {"velocityCutoff", 18},
       {"volume", 1}});

  add("Signal Fire", "COAST", {"lead"},
      {{"osc1Wave", saw},     {"osc1Pan", 0},       {"osc2Wave", square},   {"osc2Semi", -12},
       {"osc2Fine", 3},       {"osc2Level", -8},    {"osc2Pan", 0},         {"unisonOn", on},
       {"unisonVoices", 3},   {"unisonDetune", 14}, {"unisonSpread", 60},   {"cutoff", 1500},
       {"resonance", 30},     {"filterDrive", 9},   {"filterEnvelope", 20}, {"filterDecay", 900},
       {"filterSustain", 45}, {"ampAttack", 3},     {"ampSustain", 90},     {"ampRelease", 260},
       {"voiceMode", legato}, {"glide", 70},        {"lfo2Pitch", 16},      {"lfo2Fade", 0.6f},
       {"driveOn", on},       {"driveAmount", 14},  {"driveTone", 6500},    {"chorusMix", 25},
       {"delayOn", on},       {"delayDivision", 7}, {"delayFeedback", 42},  {"delayMix", 26},
       {"reverbMix", 20},     {"wheelVibrato", 60}, {"volume", -2}});

  add("Rain on Tin", "COAST", {"pluck"},
      {{"osc1Wave", triangle}, {"osc1Pan", -0.2f},    {"osc2Wave", pulse},
       {"osc2Semi", 12},       {"osc2Width", 22},     {"osc2Level", -11},
       {"osc2Pan", 0.3f},      {"noiseLevel", -26},   {"cutoff", 420},
       {"resonance", 38},      {"filterType", low12}, {"filterEnvelope", 44},
       {"filterAttack", 1},    {"filterDecay", 420},  {"filterSustain", 0},
       {"filterRelease", 420}, {"ampAttack", 1},      {"ampDecay", 1100},
       {"ampSustain", 0},      {"ampRelease", 900},   {"velocityLevel", 75},
       {"velocityCutoff", 24}, {"keytrack", 70},      {"subLevel", -48},
       {"lfo2Pitch", 0},       {"delayOn", on},       {"delayDivision", 4},
       {"delayFeedback", 55},  {"delayTone", 5200},   {"delayMix", 38},
       {"reverbDecay", 3},     {"reverbMix", 30},     {"volume", 4}});

  add("Tine House", "HARBOUR", {"keys"},
      {{"osc1Wave", sine},    {"osc1Pan", 0},         {"osc1Level", 0},      {"osc2Wave", sine},
       {"osc2Semi", 24},      {"osc2Fine", 2},        {"osc2Level", -24},    {"osc2Pan", 0},
       {"fmAmount", 32},      {"fmRatio", 1},         {"subLevel", -30},     {"cutoff", 900},
       {"filterType", low12}, {"resonance", 4},       {"filterDrive", 4},    {"filterEnvelope", 26},
       {"filterAttack", 1},   {"filterDecay", 2200},  {"filterSustain", 10}, {"filterRelease", 500},
       {"ampAttack", 1},      {"ampDecay", 5200},     {"ampSustain", 0},     {"ampRelease", 420},
       {"velocityLevel", 70}, {"velocityCutoff", 30}, {"keytrack", 80},      {"lfo1Cutoff", 0},
       {"lfo2Pitch", 0},      {"lfo2Rate", 4.6f},     {"lfo2Pan", 45},       {"chorusMix", 30},
       {"reverbMix", 18},     {"volume", 0}});

  add("Lantern Organ", "HARBOUR", {"keys", "organ"},
      {{"osc1Wave", sine},   {"osc1Pan", 0},     {"osc1Level", -2},   {"osc2Wave", triangle},
       {"osc2Semi", 19},     {"osc2Fine", 0},    {"osc2Level", -10},  {"osc2Pan", 0},
       {"subLevel", -5},     {"fmAmount", 18},   {"fmRatio", 4},      {"filterOn", off},
       {"ampAttack", 4},     {"ampDecay", 200},  {"ampSustain", 100}, {"ampRelease", 60},
       {"velocityLevel", 0}, {"lfo1Rate", 6.4f}, {"lfo1Cutoff", 0},   {"lfo1Level", 18},
       {"lfo2Rate", 6.2f},   {"lfo2Pitch", 7},   {"lfo2Pan", 30},     {"lfo2Fade", 0},
       {"driveOn", on},      {"driveAmount", 8}, {"driveTone", 6000}, {"driveMix", 70},
       {"chorusRate", 0.9f}, {"chorusMix", 55},  {"reverbMix", 24},   {"volume", -6}});

  add("Brass Gate", "HARBOUR", {"brass"},
      {{"osc1Wave", saw},     {"osc1Pan", -0.15f},    {"osc2Wave", saw},    {"osc2Fine", -9},
       {"osc2Level", -3},     {"osc2Pan", 0.15f},     {"cutoff", 380},      {"resonance", 14},
       {"filterDrive", 6},    {"filterEnvelope", 38}, {"filterAttack", 70}, {"filterDecay", 1300},
       {"filterSustain", 58}, {"filterRelease", 320}, {"ampAttack", 28},    {"ampSustain", 88},
       {"ampRelease", 260},   {"velocityCutoff", 26}, {"lfo2Pitch", 8},     {"lfo2Fade", 1.2f},
       {"chorusMix", 30},     {"reverbDecay", 1.8f},  {"reverbMix", 24},    {"volume", -3}});

  add("Night Ferry", "HARBOUR", {"pad", "motion"},
      {{"osc1Wave", pulse},   {"osc1Width", 30},    {"osc1Pan", -0.5f},    {"osc2Wave", saw},
       {"osc2Semi", 7},       {"osc2Fine", -6},     {"osc2Level", -10},    {"osc2Pan", 0.5f},
       {"filterType", band},  {"cutoff", 1100},     {"resonance", 46},     {"filterEnvelope", 0},
       {"ampAttack", 160},    {"ampSustain", 90},   {"ampRelease", 1600},  {"lfo1Wave", 2},
       {"lfo1Sync", on},      {"lfo1Division", 5},  {"lfo1Cutoff", 20},    {"lfo1Level", 55},
       {"lfo2Wave", 5},       {"lfo2Rate", 0.5f},   {"lfo2Pitch", 6},      {"lfo2Pan", 60},
       {"delayOn", on},       {"delayDivision", 9}, {"delayFeedback", 60}, {"delayMix", 34},
       {"reverbDecay", 6.5f}, {"reverbMix", 36},    {"volume", 3}});

  add("Wind Index", "HARBOUR", {"effects"},
      {{"osc1Wave", noise},   {"osc1Level", -2},      {"osc2On", off},    {"subLevel", -48},
       {"filterType", band},  {"cutoff", 900},        {"resonance", 82},  {"keytrack", 100},
       {"filterEnvelope", 6}, {"filterAttack", 1800}, {"ampAttack", 900}, {"ampSustain", 100},
       {"ampRelease", 3200},  {"lfo1Wave", 5},        {"lfo1Rate", 0.7f}, {"lfo1Cutoff", 7},
       {"lfo2Wave", 5},       {"lfo2Rate", 0.3f},     {"lfo2Pan", 90},    {"delayOn", on},
       {"delayMix", 30},      {"delayFeedback", 65},  {"reverbDecay", 9}, {"reverbMix", 50},
       {"volume", 3}});

  return presets;
}

}  // namespace halden

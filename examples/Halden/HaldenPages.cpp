#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "examples/Halden/HaldenColors.h"
#include "examples/Halden/HaldenDesign.h"

namespace halden {
namespace {

using orvane::Page;
using orvane::Section;
using orvane::UIColumn;
using orvane::UISection;
using platform::Color;

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

/// Controls below each other, with their shares of the height.
UIColumn stacked(std::initializer_list<std::pair<const char*, double>> keys, double weight) {
  UIColumn column{{}, weight};
  for (const auto& [key, height] : keys) column.params.push_back({key, {}, height, 0, 1});
  return column;
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
  const auto fm = section("FM", Colors::violet, row({"fmAmount", "fmRatio"}));
  const auto touch = section(
      "TOUCH", Colors::rose,
      {single("velocity1", 4.4), single("velocityCutoff", 1.3), single("pressureCutoff", 1.3)});
  const auto pitch = section("PITCH", Colors::sand, row({"bendRange", "tune"}));
  return std::make_shared<Page>(
      std::vector<UISection>{
          {unison, 3, 0, 1, 0}, {fm, 2, 0, 1, 0}, {pitch, 2, 0, 1, 0}, {touch, 7, 1, 1, 0}},
      "VOICE");
}

std::shared_ptr<Page> filterPage() {
  const auto filter = section(
      "FILTER", Colors::teal,
      {buttons("filterType", 1.1), single("cutoff", 3.9), single("filterDrive", 3)}, "filterOn");
  const auto filterEnvelope = section("FILTER ENVELOPE", Colors::sky,
                                      {stacked({{"filterAttack", 1.1}, {"filterEnvelope", 1}}, 1)});
  const auto ampEnvelope =
      section("AMP ENVELOPE", Colors::moss,
              {stacked({{"ampAttack", 1.1}, {"velocityLevel", 1}}, 1)}, std::nullopt, "levelLight");
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

std::shared_ptr<Page> sequencerPage() {
  const auto steps =
      section("STEPS", Colors::rose,
              std::vector<UIColumn>{single("step1", 5),
                                    stacked({{"stepsDivision", 0.5}, {"stepsCount", 0.5}}, 1)} +
                  row({"stepsCutoff", "stepsPitch", "stepsGlide"}),
              "stepsOn");
  const auto curve =
      section("CURVE", Colors::moss,
              std::vector<UIColumn>{single("curve1", 5),
                                    stacked({{"curveDivision", 0.5}, {"curveCount", 0.5}}, 1)} +
                  row({"curveLevel", "curveWidth", "curvePan"}),
              "curveOn");
  return std::make_shared<Page>(std::vector<UISection>{{steps, 1, 0, 1, 0}, {curve, 1, 1, 1, 0}},
                                "SEQ");
}

std::shared_ptr<Page> effectsPage() {
  const auto drive =
      section("DRIVE", Colors::coral, {single("driveAmount", 2), single("driveTone")}, "driveOn",
              "clipLight");
  const auto chorus =
      section("CHORUS", Colors::teal, {single("chorusRate", 2), single("chorusMix")}, "chorusOn");
  const auto delay = section("DELAY", Colors::moss,
                             timeColumns("delayTime", "delayDivision", "delaySync") +
                                 row({"delayFeedback", "delayLowCut", "delayMix"}),
                             "delayOn");
  const auto reverb =
      section("REVERB", Colors::violet,
              row({"reverbPredelay", "reverbDecay", "reverbTone", "reverbMix"}), "reverbOn");
  return std::make_shared<Page>(
      std::vector<UISection>{
          {drive, 3, 0, 1, 0}, {delay, 4, 0, 1, 0}, {chorus, 3, 1, 1, 0}, {reverb, 4, 1, 1, 0}},
      "FX");
}

}  // namespace

std::vector<std::shared_ptr<Page>> HaldenDesign::pages() const {
  return {oscillatorPage(), voicePage(),     filterPage(),
          modulationPage(), sequencerPage(), effectsPage()};
}

}  // namespace halden

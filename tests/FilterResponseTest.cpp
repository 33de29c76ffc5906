// What filter views show: responses against their closed forms, and how parameters are read.

#include "Quillon/FilterResponse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "Quillon/CommonAudioUnit.h"
#include "platform/FilterUnits.h"

namespace quillon {
namespace {

using Type = FilterType;
using Unit = platform::AudioUnitParameterUnit;

TEST(FilterResponse, FollowsTheClosedForms) {
  const double q = 4, resonance = 20 * std::log10(q);
  struct Case {
    const char* what;
    Type type;
    double gain, hertz, decibels;
  };
  // All filters stand at 1 kHz with Q = 4.
  const Case cases[] = {
      {"a low pass passes what is far below", Type::lowPass, 0, 1, 0},
      {"has the gain Q at its frequency", Type::lowPass, 0, 1000, resonance},
      {"falls 40 dB from one decade to the next", Type::lowPass, 0, 100000, -80},
      {"is 1 / |1 - w^2 + jw/Q| an octave above", Type::lowPass, 0, 2000,
       -10 * std::log10(9 + 4 / (q * q))},
      {"a high pass is its mirror", Type::hiPass, 0, 500, -10 * std::log10(9 + 4 / (q * q))},
      {"with the gain Q at its frequency", Type::hiPass, 0, 1000, resonance},
      {"and 40 dB a decade", Type::hiPass, 0, 10, -80},
      {"a band pass passes its frequency", Type::bandPass, 0, 1000, 0},
      {"and falls 20 dB a decade beside it", Type::bandPass, 0, 100000,
       20 * std::log10(1 / (q * 100))},
      {"its corners are 3 dB down, a bandwidth apart", Type::bandPass, 0,
       1000 * (std::sqrt(1 + 1 / (4 * q * q)) + 1 / (2 * q)), -10 * std::log10(2)},
      {"a notch stops its frequency", Type::notch, 0, 1000, -160},
      {"and passes the rest", Type::notch, 0, 100000, 0},
      {"a peak has its gain at its frequency", Type::peak, 9, 1000, 9},
      {"a dip as well", Type::peak, -9, 1000, -9},
      {"and nothing far away", Type::peak, 9, 1, 0},
      {"a low shelf has its gain below", Type::lowShelf, 12, 1, 12},
      {"half of it at its frequency, for Q = 1 / sqrt 2", Type::lowShelf, 12, 1000, 6},
      {"and none above", Type::lowShelf, 12, 1000000, 0},
      {"a high shelf has its gain above", Type::hiShelf, -12, 1000000, -12},
      {"and none below", Type::hiShelf, -12, 1, 0},
      {"any other type is raised as a whole", Type::lowPass, 6, 1, 6},
  };
  for (const Case& c : cases) {
    const bool shelf = c.type == Type::lowShelf || c.type == Type::hiShelf;
    const FilterResponse response(c.type, 1000, shelf ? std::sqrt(0.5) : q, c.gain);
    EXPECT_NEAR(response.decibelsAt(c.hertz), c.decibels, 0.01) << c.what;
  }
}

TEST(FilterResponse, StaysFiniteForNonsense) {
  for (double frequency : {0.0, -5.0, 1e30})
    for (double quality : {0.0, -1.0, 1e30})
      for (int type = 0; type < 7; ++type)
        for (double hertz : {0.0, 20.0, 1e9})
          EXPECT_TRUE(std::isfinite(
              FilterResponse(static_cast<Type>(type), frequency, quality, 40).decibelsAt(hertz)));
}

class Filters : public CommonAudioUnit {
 public:
  Filters()
      : CommonAudioUnit({
            {.key = "lowFrequency",
             .address = 1,
             .minValue = 20,
             .maxValue = 20000,
             .defaultValue = 1000,
             .unit = Unit::hertz},
            {.key = "lowResonance",
             .address = 2,
             .minValue = -20,
             .maxValue = 40,
             .defaultValue = 12,
             .unit = Unit::decibels},
            {.key = "highFrequency", .address = 3},
            {.key = "highQuality",
             .address = 4,
             .minValue = 0.5f,
             .maxValue = 20,
             .defaultValue = 2,
             .unit = Unit::ratio},
            {.key = "amount", .address = 5, .maxValue = 100, .defaultValue = 50},
            {.key = "highOn", .address = 6, .defaultValue = 1, .unit = Unit::boolean},
            {.key = "gain",
             .address = 7,
             .minValue = -24,
             .maxValue = 24,
             .defaultValue = 6,
             .unit = Unit::decibels},
            {.key = "type",
             .address = 8,
             .maxValue = 1,
             .unit = Unit::indexed,
             .valueStrings = {"lowPass", "peak"}},
        }) {}
};

TEST(FilterMagnitudes, AreReadFromParametersInTheirUnits) {
  Filters unit;
  const std::vector<double> at{20, 1000, 10000};
  const auto byKeys = unit.magnitudesForFrequencies(at, "lowPass", "lowFrequency", "lowResonance");
  ASSERT_EQ(byKeys.size(), 3u);
  EXPECT_NEAR(byKeys[1], 12, 1e-4);
  EXPECT_EQ(byKeys, unit.magnitudesForFrequencies(at, "lowPass", 1000.0f, 12.0f));
  // A frequency that is no hertz counts in pitch; a ratio is Q; any other unit is an amount.
  EXPECT_NEAR(unit.magnitudesForFrequencies(at, "hiPass", "highFrequency", "highQuality")[0],
              20 * std::log10(2), 1e-3);
  EXPECT_NEAR(unit.magnitudesForFrequencies(at, "lowPass", "lowFrequency", "amount")[1], 15, 1e-3);

  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(unit.magnitudesForFrequencies(at, "comb", 1000.0f, 0.0f).empty());
  EXPECT_TRUE(unit.magnitudesForFrequencies(at, "notch", nan, 0.0f).empty());
  EXPECT_TRUE(unit.magnitudesForFrequencies(at, "notch", 1000.0f, nan).empty());
  EXPECT_TRUE(unit.magnitudesForFrequencies(at, "notch", "lowFrequency", "nothing").empty());
}

TEST(FilterMagnitudes, OfAPairAddUp) {
  Filters unit;
  const std::vector<double> at{1000};
  unit.setParameter("highFrequency", 1);  // 20 kHz
  platform::FilterPairKeys keys{.lowPassFrequency = "lowFrequency",
                                .lowPassResonance = "lowResonance",
                                .hiPassFrequency = "highFrequency",
                                .isHighPassOn = "highOn"};
  const double high = FilterResponse(Type::hiPass, 20000, std::sqrt(0.5)).decibelsAt(1000);
  EXPECT_NEAR(unit.magnitudesForFrequencies(at, keys)[0], 12 + high, 1e-3);
  unit.setParameter("highOn", 0);
  EXPECT_NEAR(unit.magnitudesForFrequencies(at, keys)[0], 12, 1e-3);
  keys.lowPassGain = "gain";
  EXPECT_NEAR(unit.magnitudesForFrequencies(at, keys)[0], 18, 1e-3);
  keys.lowPassType = "type";
  unit.setParameter("type", 1);
  EXPECT_NEAR(unit.magnitudesForFrequencies(at, keys)[0], 6, 1e-3) << "a peak has its own gain";
  EXPECT_TRUE(unit.magnitudesForFrequencies(at, platform::FilterPairKeys{}).empty());
}

}  // namespace
}  // namespace quillon

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "examples/Halden/dsp/Drive.h"
#include "examples/Halden/dsp/Envelope.h"
#include "examples/Halden/dsp/Lfo.h"
#include "examples/Halden/dsp/Oscillator.h"
#include "examples/Halden/dsp/Reverb.h"
#include "examples/Halden/dsp/Sequencer.h"
#include "examples/Halden/dsp/StateVariableFilter.h"
#include "examples/Halden/dsp/StereoDelay.h"

namespace halden {
namespace {

double decibels(double ratio) { return 20 * std::log10(ratio); }

/// Strength of one partial of a sound that repeats after `samples`.
double partial(const std::vector<float>& samples, std::size_t cycles) {
  double real = 0, imaginary = 0;
  const double step = 2 * 3.14159265358979 / static_cast<double>(samples.size());
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double angle = step * static_cast<double>(cycles * i % samples.size());
    real += samples[i] * std::cos(angle);
    imaginary += samples[i] * std::sin(angle);
  }
  return 2 * std::hypot(real, imaginary) / static_cast<double>(samples.size());
}

std::vector<float> renderWave(Wave wave, float increment, std::size_t samples, float width = 0.5f) {
  WaveMix mix{};
  mix[static_cast<std::size_t>(wave)] = Ramp::constant(1);
  Oscillator oscillator;
  oscillator.reset(0.123f, 7);
  std::vector<float> output(samples);
  for (std::size_t i = 0; i < samples; i += 64)
    oscillator.render({Ramp::constant(increment), Ramp::constant(width), &mix, nullptr}, 0, 64,
                      output.data() + i);
  return output;
}

TEST(HaldenOscillatorTest, FoldsLittleOfAHighNoteBackToWhereItIsHeard) {
  // 357 cycles in 4096 samples are 4184 Hz at 48 kHz: what is not a multiple of 357 has folded.
  constexpr std::size_t size = 4096, cycles = 357;
  const struct {
    Wave wave;
    double bound;
  } cases[] = {{Wave::sine, -90},
               {Wave::triangle, -80},
               {Wave::saw, -60},
               {Wave::square, -58},
               {Wave::pulse, -58}};
  for (const auto& c : cases) {
    const auto sound = renderWave(c.wave, cycles / 4096.0f, size, 0.31f);
    double folded = 0;
    // Up to 12 kHz: above it, the ear and the treble of any patch cover it.
    for (std::size_t bin = 1; bin <= size / 4; ++bin) {
      if (bin % cycles != 0) folded += std::pow(partial(sound, bin), 2);
    }
    EXPECT_LT(decibels(std::sqrt(folded) / partial(sound, cycles)), c.bound)
        << "wave " << static_cast<int>(c.wave);
  }
}

TEST(HaldenOscillatorTest, HasThePartialsOfItsWaveAndNoConstantPart) {
  constexpr std::size_t size = 8192, cycles = 16;
  const auto saw = renderWave(Wave::saw, cycles / 8192.0f, size);
  for (int n : {2, 3, 5, 10}) {
    EXPECT_NEAR(partial(saw, cycles * n) / partial(saw, cycles), 1.0 / n, 0.01) << n;
  }
  const auto square = renderWave(Wave::square, cycles / 8192.0f, size);
  EXPECT_LT(partial(square, cycles * 2), 1e-3);
  for (Wave wave : {Wave::sine, Wave::triangle, Wave::saw, Wave::square, Wave::pulse}) {
    const auto sound = renderWave(wave, cycles / 8192.0f, size, 0.1f);
    double sum = 0;
    for (float sample : sound) sum += sample;
    EXPECT_NEAR(sum / size, 0, 1e-3) << static_cast<int>(wave);
  }
}

double gainOfFilter(float sampleRate, float cutoff, float q, double frequency,
                    float StateVariableFilter::Output::*output) {
  StateVariableFilter filter;
  const StateVariableFilter::Coefficients c(StateVariableFilter::warp(cutoff, sampleRate), 1 / q);
  double in = 0, out = 0;
  const int samples = static_cast<int>(sampleRate / 2);
  for (int i = 0; i < samples; ++i) {
    const auto x = static_cast<float>(
        0.01 * std::sin(2 * 3.14159265358979 * frequency * i / double{sampleRate}));
    const float y = filter.process(x, c).*output;
    if (i < samples / 2) continue;
    in += x * x;
    out += y * y;
  }
  return 10 * std::log10(out / in);
}

TEST(HaldenFilterTest, IsRightAtItsCutoffAtEverySampleRate) {
  using Output = StateVariableFilter::Output;
  for (float rate : {22050.0f, 44100.0f, 48000.0f, 96000.0f, 192000.0f}) {
    EXPECT_NEAR(gainOfFilter(rate, 1000, 0.7071f, 1000, &Output::low), -3.01, 0.05) << rate;
    EXPECT_NEAR(gainOfFilter(rate, 1000, 0.7071f, 1000, &Output::high), -3.01, 0.05) << rate;
    EXPECT_NEAR(gainOfFilter(rate, 1000, 10, 1000, &Output::low), 20, 0.1) << rate;
    EXPECT_NEAR(gainOfFilter(rate, 1000, 0.7071f, 100, &Output::low), 0, 0.05) << rate;
    EXPECT_LT(gainOfFilter(rate, 1000, 0.7071f, 4000, &Output::low), -23.5) << rate;
  }
}

TEST(HaldenFilterTest, StaysBoundedWhenItsCutoffJumpsWithEverySample) {
  for (float rate : {22050.0f, 48000.0f, 192000.0f}) {
    StateVariableFilter filter;
    Random random(5);
    float loudest = 0;
    for (int i = 0; i < 200000; ++i) {
      const float cutoff = 20 * std::exp2(10 * random.unipolar());
      const StateVariableFilter::Coefficients c(StateVariableFilter::warp(cutoff, rate), 0.02f);
      const auto out = filter.process(random.bipolar(), c);
      loudest = std::max({loudest, std::abs(out.low), std::abs(out.band), std::abs(out.high)});
    }
    EXPECT_LT(loudest, 40) << rate;
  }
}

TEST(HaldenEnvelopeTest, KeepsItsTimes) {
  for (float rate : {22050.0f, 48000.0f, 192000.0f}) {
    for (float seconds : {0.005f, 0.1f, 2.0f}) {
      Envelope envelope;
      envelope.setSampleRate(rate);
      envelope.setTimes({seconds, seconds, 0.5f, seconds});
      const auto samplesUntil = [&](auto reached) {
        int samples = 0;
        while (!reached(envelope.process()) && samples < 3 * seconds * rate) ++samples;
        return static_cast<float>(samples) / rate;
      };
      const float tolerance = 0.02f * seconds + 2 / rate;
      envelope.start();
      EXPECT_NEAR(samplesUntil([](float level) { return level >= 1; }), seconds, tolerance);
      // The sustain level is reached to within a thousandth in the decay's time.
      for (int i = 0; i < seconds * rate; ++i) envelope.process();
      EXPECT_NEAR(envelope.level(), 0.5f, 0.001f);
      envelope.release();
      const float fromSustain = samplesUntil([](float level) { return level <= 0; });
      EXPECT_GT(fromSustain, 0.8f * seconds);
      EXPECT_LE(fromSustain, seconds + tolerance);
      EXPECT_TRUE(envelope.isIdle());
    }
  }
}

TEST(HaldenEnvelopeTest, MovesOnFromWhereItIsWhenItIsStartedAgain) {
  Envelope envelope;
  envelope.setSampleRate(48000);
  envelope.setTimes({0.01f, 0.1f, 0.7f, 0.2f});
  Random random(3);
  float last = 0, maxStep = 0;
  for (int i = 0; i < 100000; ++i) {
    if (i % 700 == 0) random.bipolar() > 0 ? envelope.start() : envelope.release();
    const float level = envelope.process();
    maxStep = std::max(maxStep, std::abs(level - last));
    last = level;
  }
  EXPECT_LT(maxStep, 0.01f);
  envelope.fadeOut();
  for (int i = 0; i < 300; ++i) envelope.process();
  EXPECT_TRUE(envelope.isIdle());
}

TEST(HaldenLfoTest, EveryShapeStaysInRangeRepeatsAndNeverJumps) {
  for (int shape = 0; shape < lfoWaveCount; ++shape) {
    Lfo lfo;
    lfo.reset(9);
    std::vector<float> values;
    for (int i = 0; i < 6000; ++i) {
      lfo.advance(static_cast<LfoWave>(shape), 2, 0, 1 / 3000.0f);
      values.push_back(lfo.value());
    }
    float maxStep = 0;
    for (std::size_t i = 1; i < values.size(); ++i) {
      EXPECT_LE(std::abs(values[i]), 1.001f);
      maxStep = std::max(maxStep, std::abs(values[i] - values[i - 1]));
      if (i > 3000 && shape != static_cast<int>(LfoWave::random)) {
        EXPECT_NEAR(values[i], values[i - 1500], 0.35f) << shape << " at " << i;
      }
    }
    EXPECT_LT(maxStep, 0.35f) << shape;
  }
}

TEST(HaldenSequencerTest, FollowsTheSongOrGoesOnByItself) {
  Sequencer sequencer;
  // Dotted eighths at 150 beats a minute are 0.3 seconds.
  const Sequencer::Tempo tempo{2.5f, 0.75f};
  sequencer.setBeat(7.5, tempo, 6);
  EXPECT_NEAR(sequencer.place(), 4, 1e-4);
  for (int i = 0; i < 750; ++i) sequencer.advance(tempo, 6, 0.001f);
  EXPECT_NEAR(sequencer.place(), 0.5, 1e-3);
  sequencer.setBeat(-0.75, tempo, 6);
  EXPECT_NEAR(sequencer.place(), 5, 1e-4);
  // A row that has become shorter.
  sequencer.advance(tempo, 2, 0);
  EXPECT_NEAR(sequencer.place(), 1, 1e-4);
}

TEST(HaldenSequencerTest, StaysBetweenTwoNeighboursOnItsCurve) {
  const float values[] = {100, 0, 0, 50, 40, 90};
  const Sequencer::Tempo tempo{1, 1};
  Sequencer sequencer;
  for (int i = 0; i < 600; ++i, sequencer.advance(tempo, 6, 0.01f)) {
    const float place = sequencer.place() - 0.5f;
    const auto before = static_cast<std::size_t>(std::clamp(std::floor(place), 0.0f, 5.0f));
    const auto after = static_cast<std::size_t>(std::clamp(std::ceil(place), 0.0f, 5.0f));
    const float value = sequencer.curve(values, 6);
    EXPECT_GE(value, std::min(values[before], values[after]) - 0.01f) << place;
    EXPECT_LE(value, std::max(values[before], values[after]) + 0.01f) << place;
    EXPECT_EQ(sequencer.step(values), values[static_cast<std::size_t>(sequencer.place())]);
  }
}

TEST(HaldenDriveTest, DelaysQuietSoundByItsLatencyAndHoldsLoudSound) {
  Drive drive;
  drive.setSampleRate(48000);
  Drive::Settings settings;
  settings.amount = settings.inputGain = settings.outputGain = settings.mix = Ramp::constant(1);
  settings.toneFrequency = 24000;
  std::vector<float> in(512), left, right;
  for (std::size_t i = 0; i < in.size(); ++i)
    in[i] = 0.01f * sineOfPhase(wrapPhase(static_cast<float>(i) / 48));
  left = right = in;
  drive.process(settings, 0, 512, left.data(), right.data());
  for (std::size_t i = 100; i < in.size(); ++i)
    EXPECT_NEAR(left[i], in[i - Drive::latency], 2e-4f) << i;

  for (float& sample : in) sample *= 1000;
  left = right = in;
  drive.process(settings, 0, 512, left.data(), right.data());
  for (std::size_t i = 100; i < in.size(); ++i) EXPECT_LT(std::abs(right[i]), 1.3f);
}

TEST(HaldenDriveTest, MakesNoSoundOfItsBiasAndKeepsEveryShapeInBounds) {
  for (std::size_t shape = 0; shape < driveShapeCount; ++shape) {
    for (float bias : {-0.5f, 0.0f, 0.5f}) {
      const float gain = decibelsToGain(30);
      Drive::Settings settings;
      settings.amount = settings.outputGain = settings.mix = Ramp::constant(1);
      settings.inputGain = Ramp::constant(gain);
      settings.bias = Ramp::constant(bias);
      settings.constantPart = Ramp::constant(driven(static_cast<DriveShape>(shape), gain * bias));
      settings.shapes = {};
      settings.shapes[shape] = Ramp::constant(1);
      Drive drive;
      drive.setSampleRate(48000);
      std::vector<float> left(512), right(512);
      drive.process(settings, 0, 512, left.data(), right.data());
      for (std::size_t i = 100; i < left.size(); ++i) EXPECT_NEAR(left[i], 0, 1e-4f) << shape;
      Random random(3);
      for (float& sample : left) sample = random.bipolar();
      drive.process(settings, 0, 512, left.data(), right.data());
      for (float sample : left) EXPECT_LT(std::abs(sample), 3) << shape;
    }
  }
}

TEST(HaldenStereoDelayTest, AnswersAfterItsTimeOnTheLeftThenOnTheRight) {
  StereoDelay delay;
  delay.setSampleRate(48000);
  StereoDelay::Settings settings;
  settings.amount = settings.mix = Ramp::constant(1);
  settings.feedback = Ramp::constant(0.5f);
  settings.seconds = 0.1f;
  settings.toneFrequency = 16000;
  std::vector<float> left(24000), right(24000);
  left[0] = right[0] = 1;
  for (std::size_t i = 0; i < left.size(); i += 16)
    delay.process(settings, 0, 16, left.data() + i, right.data() + i);
  const auto loudest = [](const std::vector<float>& side, std::size_t from, std::size_t to) {
    std::size_t best = from;
    for (std::size_t i = from; i < to; ++i)
      if (std::abs(side[i]) > std::abs(side[best])) best = i;
    return best;
  };
  EXPECT_NEAR(static_cast<double>(loudest(left, 10, 7000)), 4800, 3);
  EXPECT_NEAR(static_cast<double>(loudest(right, 10, 12000)), 9600, 4);
  EXPECT_LT(std::abs(right[loudest(right, 10, 7000)]), 1e-3f);
}

TEST(HaldenStereoDelayTest, RestsOnceItsEchoesHaveDiedAndHasForgottenThemThen) {
  StereoDelay delay;
  delay.setSampleRate(48000);
  StereoDelay::Settings settings;
  settings.amount = settings.mix = Ramp::constant(1);
  settings.feedback = Ramp::constant(0.2f);
  settings.seconds = 0.05f;
  const auto play = [&](float impulse, int blocks) {
    float loudest = 0;
    for (int block = 0; block < blocks; ++block) {
      std::vector<float> left(16), right(16);
      if (block == 0) left[0] = right[0] = impulse;
      delay.process(settings, 0, 16, left.data(), right.data());
      if (block > 0) loudest = std::max(loudest, std::abs(left[3]));
    }
    return loudest;
  };
  EXPECT_GT(play(1, 900), 0.001f);
  EXPECT_FALSE(delay.isQuiet());
  play(0, 2000);
  EXPECT_TRUE(delay.isQuiet());
  delay.rest();
  // The old echoes are within reach of the new time.
  settings.seconds = 1.5f;
  settings.feedback = Ramp::constant(0);
  EXPECT_LT(play(0.01f, 4490), 1e-6f);
  EXPECT_FALSE(delay.isQuiet());
  EXPECT_GT(play(0, 200), 1e-4f) << "the new one";
}

TEST(HaldenReverbTest, FallsBySixtyDecibelsInItsDecayTime) {
  for (float rate : {44100.0f, 96000.0f}) {
    Reverb reverb;
    reverb.setSampleRate(rate);
    Reverb::Settings settings;
    settings.amount = settings.mix = Ramp::constant(1);
    settings.decay = 1;
    settings.toneFrequency = 16000;
    const auto length = static_cast<std::size_t>(1.6f * rate) / 64 * 64;
    std::vector<float> left(length), right(length);
    Random random(2);
    for (std::size_t i = 0; i < static_cast<std::size_t>(rate / 10); ++i)
      left[i] = random.bipolar();
    for (std::size_t i = 0; i < length; i += 64)
      reverb.process(settings, 0, 64, left.data() + i, right.data() + i);
    const auto power = [&](float seconds) {
      double sum = 0;
      const auto begin = static_cast<std::size_t>(seconds * rate);
      for (std::size_t i = begin; i < begin + static_cast<std::size_t>(rate / 20); ++i)
        sum += double{left[i]} * left[i] + double{right[i]} * right[i];
      return 10 * std::log10(sum);
    };
    EXPECT_NEAR(power(0.2f) - power(1.2f), 60, 8) << rate;
  }
}

}  // namespace
}  // namespace halden

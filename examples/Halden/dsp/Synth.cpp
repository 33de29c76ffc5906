#include "examples/Halden/dsp/Synth.h"

#include "Quillon/MidiMessage.h"

namespace halden {
namespace {

/// Longer than any effect but echo and hall holds a sound.
constexpr double restSeconds = 0.1;

/// Leaves quiet sound alone and never passes 1.
float holdBack(float x) {
  constexpr float knee = 0.85f;
  const float size = std::abs(x);
  if (size <= knee) return x;
  return std::copysign(knee + (1 - knee) * softClip((size - knee) / (1 - knee)), x);
}

}  // namespace

void Synth::prepare(double sampleRate) {
  sampleRate_ = static_cast<float>(sampleRate);
  frameLength_ = sampleRate > 100000 ? 64 : sampleRate > 50000 ? 32 : 16;
  highPassShare_ = OnePole::share(6, sampleRate_);
  controls_.setSampleRate(sampleRate_);
  voices_.prepare(sampleRate_);
  drive_.setSampleRate(sampleRate_);
  chorus_.setSampleRate(sampleRate_);
  delay_.setSampleRate(sampleRate_);
  reverb_.setSampleRate(sampleRate_);
  reset();
}

void Synth::reset() {
  controls_.reset();
  voices_.reset();
  drive_.reset();
  chorus_.reset();
  delay_.reset();
  reverb_.reset();
  for (OnePole& filter : highPass_) filter.reset();
  performance_ = {};
  framePosition_ = frameLength_;
  quietSamples_ = 0;
  isFrameHeard_ = asleep_ = false;
}

void Synth::handle(const platform::MidiEvent& event) {
  using Kind = quillon::MidiMessage::Kind;
  const auto message = quillon::MidiMessage::parse(event);
  const ControlFrame& frame = controls_.frame();
  const float amount = static_cast<float>(message.value) / 127;
  switch (message.kind) {
    case Kind::noteOn:
      asleep_ = false;
      quietSamples_ = 0;
      if (!voices_.isHeld()) controls_.restartSequencers();
      voices_.noteOn(message.number, controls_.velocity(amount), frame);
      break;
    case Kind::noteOff:
      voices_.noteOff(message.number, frame);
      break;
    case Kind::pitchBend:
      performance_.bend = message.bend;
      break;
    case Kind::channelPressure:
      performance_.pressure = amount;
      break;
    case Kind::controlChange:
      switch (message.number) {
        case 1:
          performance_.wheel = amount;
          break;
        case 64:
          voices_.setSustain(message.value >= 64);
          break;
        case 120:
          voices_.silenceAll();
          break;
        case 121:
          performance_ = {};
          voices_.setSustain(false);
          break;
        case 123:
          voices_.releaseAll();
          break;
      }
      break;
    default:
      break;
  }
}

void Synth::beginFrame(const ParamValues& params) {
  voices_.setMode(static_cast<VoiceMode>(std::clamp(params.index(Param::voiceMode), 0, 2)));
  const bool panic = params.isOn(Param::panic);
  if (panic && !panicHeld_) voices_.silenceAll();
  panicHeld_ = panic;
  voices_.beginFrame(controls_.advance(params, performance_, frameLength_));
  framePosition_ = 0;
  // Decided at the same samples however the time is cut: no voice sounds, and no effect has anything
  // left to say.
  quietSamples_ = std::exchange(isFrameHeard_, false) ? 0 : quietSamples_ + frameLength_;
  if (!asleep_ && quietSamples_ > restSeconds * static_cast<double>(sampleRate_) &&
      delay_.isQuiet() && reverb_.isQuiet()) {
    asleep_ = true;
    delay_.rest();
  }
}

void Synth::render(const ParamValues& params, std::span<const platform::MidiEvent> midi,
                   const platform::HostTransport& transport, float* left, float* right,
                   int frames) {
  // The song's place is given for the block's first sample, the LFOs ask at a frame's first.
  const double untilFrame = frameLength_ - framePosition_;
  controls_.setTransport(
      static_cast<float>(transport.tempo),
      transport.beatPosition + untilFrame / static_cast<double>(sampleRate_) * transport.tempo / 60,
      transport.isPlaying);
  std::size_t next = 0;
  int done = 0;
  while (done < frames) {
    if (framePosition_ == frameLength_) beginFrame(params);
    while (next < midi.size() && static_cast<int>(midi[next].frame) <= done) handle(midi[next++]);
    int count = std::min(frames - done, frameLength_ - framePosition_);
    if (next < midi.size()) count = std::min(count, static_cast<int>(midi[next].frame) - done);
    renderPart(left + done, right + done, count);
    framePosition_ += count;
    done += count;
  }
  while (next < midi.size()) handle(midi[next++]);
}

void Synth::renderPart(float* left, float* right, int count) {
  std::fill_n(left, count, 0.0f);
  std::fill_n(right, count, 0.0f);
  if (asleep_) return;

  const ControlFrame& frame = controls_.frame();
  const int begin = framePosition_;
  voices_.render(frame, begin, count, left, right);
  for (int i = 0; i < count; ++i) {
    left[i] *= frame.left.at(begin + i);
    right[i] *= frame.right.at(begin + i);
  }
  drive_.process(frame.effects.drive, begin, count, left, right);
  chorus_.process(frame.effects.chorus, begin, count, left, right);
  delay_.process(frame.effects.delay, begin, count, left, right);
  reverb_.process(frame.effects.reverb, begin, count, left, right);
  finish(left, right, count);
}

void Synth::finish(float* left, float* right, int count) {
  const ControlFrame& frame = controls_.frame();
  float loudest = 0;
  float sum = 0;
  float* const sides[2] = {left, right};
  for (int side = 0; side < 2; ++side) {
    for (int i = 0; i < count; ++i) {
      const float sound = highPass_[side].high(sides[side][i], highPassShare_);
      const float out = sound * frame.effects.volume.at(framePosition_ + i);
      loudest = std::max({loudest, std::abs(sound), std::abs(out)});
      sum += out;
      sides[side][i] = holdBack(out);
    }
  }
  if (loudest > 1) clipped_ = true;
  // One bad number in a feedback path would stay for ever: better a gap than that.
  if (!std::isfinite(sum)) {
    reset();
    std::fill_n(left, count, 0.0f);
    std::fill_n(right, count, 0.0f);
    framePosition_ = frameLength_ - count;
    return;
  }
  if (loudest > inaudible || !voices_.isSilent()) isFrameHeard_ = true;
}

float Synth::newestCutoff() const {
  const Voice* voice = voices_.newestVoice();
  return voice ? voice->cutoffHertz() : 0;
}

}  // namespace halden

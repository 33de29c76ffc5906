#pragma once

namespace halden {

/// Attack, decay, sustain and release on exponential curves. It always moves on from where it is:
/// a new note during a release, or times that change meanwhile, make no step.
class Envelope {
 public:
  /// Seconds; sustain from 0 to 1.
  struct Times {
    float attack = 0.005f;
    /// From full level to silence; to the sustain level it is reached in the same time.
    float decay = 0.3f;
    float sustain = 1;
    /// From full level to silence.
    float release = 0.3f;
  };

  void setSampleRate(float sampleRate) { sampleRate_ = sampleRate; }
  /// Once for each control frame.
  void setTimes(const Times& times);
  void start() { stage_ = Stage::attack; }
  void release() {
    if (stage_ != Stage::idle) stage_ = Stage::release;
  }
  /// Silent after six milliseconds, in a straight line, whatever the release is: for a voice that
  /// is stolen.
  void fadeOut();
  void reset();

  float process();
  float level() const { return static_cast<float>(level_); }
  bool isIdle() const { return stage_ == Stage::idle; }
  bool isReleased() const { return stage_ == Stage::release || stage_ == Stage::fade; }

 private:
  enum class Stage { idle, attack, hold, release, fade };
  /// A segment moves by its share of the way to an aim that lies a little beyond its end, which
  /// is why it gets there in finite time.
  struct Segment {
    double share = 1;
    float seconds = -1;
  };

  void setSegment(Segment& segment, float seconds, double overshoot) const;

  float sampleRate_ = 48000;
  /// In double: at high rates the steps of a long segment are less than a float's last digit.
  double level_ = 0;
  double sustain_ = 1;
  Segment attack_, decay_, release_;
  double fadeStep_ = 0;
  Stage stage_ = Stage::idle;
};

}  // namespace halden

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/CompressorViews.h"
#include "KestroUI/DisplayView.h"
#include "KestroUI/EffectViews.h"
#include "KestroUI/OscilloscopeView.h"
#include "KestroUI/RecordingViews.h"
#include "KestroUI/ShapeContainer.h"

// The kinds that show what a processor does with the sound.

namespace kestroui {

/// Base of the kinds that show what a processor does with the sound. The kind owns its DisplayView
/// and gives it to `setDisplay`.
class DisplayContainer : public ShapeContainer {
 public:
  const DisplayView* display() const { return display_; }

  void setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) override;
  void showValue(std::size_t index, float value, const std::string& text) override;
  void setKeyRange(std::size_t index, float minimum, float maximum) override;
  void setKeyStringValues(std::size_t index, const std::vector<std::string>& values) override;
  /// What is only measured has none.
  bool hasBadge(std::size_t index) const override;
  void setColors(const std::vector<platform::Color>& colors) override;
  void updateModulation() override;

 protected:
  /// Called once by the kind's constructor.
  void setDisplay(DisplayView& display);

 private:
  DisplayView* display_ = nullptr;
};

/// A compressor: its threshold, its ratio and whatever else it has, by what its keys say or in this
/// order; see CompressorView.
class CompressorViewContainer : public DisplayContainer {
 public:
  CompressorViewContainer() { setDisplay(view_); }

 private:
  CompressorView view_;
};

/// Two compressors in one picture. The keys of the second follow those of the first.
class DoubleCompressorViewContainer : public DisplayContainer {
 public:
  DoubleCompressorViewContainer() { setDisplay(view_); }

 private:
  CompressorView view_{2};
};

/// A compressor of one band of frequencies: its threshold, its ratio, and the edges of the band by what
/// their keys say.
class BandCompressorContainer : public DisplayContainer {
 public:
  BandCompressorContainer() { setDisplay(view_); }

 private:
  BandsView view_{BandsView::Bands::one};
};

/// A compressor of three bands between two crossovers. A design names only its own key: the
/// parameters of the bands are those that the audio unit has under the keys of `bandKeys`.
class ThreeBandCompressorContainer : public DisplayContainer {
 public:
  ThreeBandCompressorContainer() { setDisplay(view_); }

  /// The keys of the bands' parameters, as they stand or behind the container's own key.
  static const std::vector<std::string>& bandKeys();

 private:
  BandsView view_{BandsView::Bands::three};
};

/// A waveshaper: its drive, and by what their keys say its shape, bias and mix.
class WaveshaperViewContainer : public DisplayContainer {
 public:
  WaveshaperViewContainer() { setDisplay(view_); }

 private:
  WaveshaperView view_;
};

/// A phaser: its frequency and feedback, and by what their keys say its depth and stages.
class PhaserViewContainer : public DisplayContainer {
 public:
  PhaserViewContainer() { setDisplay(view_); }

 private:
  PhaserView view_;
};

/// Ribbons that up to five values shape.
class ZorvaViewContainer : public DisplayContainer {
 public:
  ZorvaViewContainer() { setDisplay(view_); }

 private:
  ZorvaView view_;
};

/// One sound as it is now. Its own parameter, which is raw, is the time that is shown.
class OscilloscopeContainer : public DisplayContainer {
 public:
  OscilloscopeContainer() { setDisplay(view_); }

  /// The sounds that it may show, of which it shows the first. They must live as long as
  /// updateModulation is called.
  virtual void setBuffers(const std::vector<const platform::LiveBuffer*>& buffers);
  std::size_t bufferCount() const { return view_.bufferCount(); }

  ValueForm valueForm(std::size_t index) const override {
    return index == 0 ? ValueForm::raw : ValueForm::position;
  }
  bool hasModulation() const override {
    return bufferCount() > 0 || DisplayContainer::hasModulation();
  }
  void updateModulation() override;

 protected:
  OscilloscopeView& view() { return view_; }

 private:
  OscilloscopeView view_;
};

/// Several sounds as they are now, each in a colour of its own.
class MultiOscilloscopeContainer : public OscilloscopeContainer {
 public:
  void setBuffers(const std::vector<const platform::LiveBuffer*>& buffers) override {
    view().setBuffers(buffers);
  }
};

/// Base of the kinds that show the recording of the audio unit behind their handles. The kind owns
/// its RecordingView and gives it to `setRecording`.
class RecordingContainer : public DisplayContainer, public SampleDataDisplay {
 public:
  bool hasModulation() const override {
    return hasDataSource() || DisplayContainer::hasModulation();
  }
  void updateModulation() override;

 protected:
  /// Called once by the kind's constructor.
  void setRecording(RecordingView& recording);
  void showData(std::shared_ptr<const platform::SampleData> data) override;

 private:
  RecordingView* recording_ = nullptr;
};

/// A recording with handles for its start and end, and by what their keys say those of its loop and
/// the playing position.
class SampleViewContainer : public RecordingContainer {
 public:
  SampleViewContainer() { setRecording(view_); }

 private:
  SampleView view_;
};

/// Grains of a recording: their position, density, length and spray, by what the keys say or in this
/// order, and their pitch.
class GranulizerViewContainer : public RecordingContainer {
 public:
  GranulizerViewContainer() { setRecording(view_); }

 private:
  GranulizerView view_;
};

}  // namespace kestroui

#pragma once

#include "KestroUI/CurveControls.h"
#include "KestroUI/DoubleSlider.h"
#include "KestroUI/FilterViews.h"
#include "KestroUI/SequencerViews.h"
#include "KestroUI/ShapeContainer.h"

// The kinds that show several values as one shape.

namespace kestroui {

/// An envelope of attack, decay, sustain and release, in the order of its keys.
class ADSRContainer : public ShapeContainer {
 public:
  ADSRContainer() { setShape(adsrControl_); }

 private:
  ADSRControl adsrControl_;
};

/// A curve through points at equal distances, a key each from left to right.
class SimpleCurveContainer : public ShapeContainer {
 public:
  SimpleCurveContainer() { setShape(curveControl_); }

 private:
  SimpleCurveControl curveControl_;
};

/// A waveshaper whose curve is a table: each key is one of its points, from left to right.
class TableWaveshaperContainer : public ShapeContainer {
 public:
  TableWaveshaperContainer() { setShape(control_); }

 private:
  TableWaveshaperControl control_;
};

/// A place in a wavetable, and with a second key its level. Each channel of its sample data is one
/// of the waves.
class WavetableContainer : public ShapeContainer, public SampleDataDisplay {
 public:
  WavetableContainer() { setShape(wavetableControl_); }

  bool hasModulation() const override { return hasDataSource() || ShapeContainer::hasModulation(); }
  void updateModulation() override {
    ShapeContainer::updateModulation();
    readData();
  }

 protected:
  void showData(std::shared_ptr<const platform::SampleData> data) override {
    wavetableControl_.setWaves(std::move(data));
  }

 private:
  WavetableControl wavetableControl_;
};

/// A range: its lower and its upper end, in the order of the keys. A linked end takes the other
/// along.
class DoubleSliderContainer : public ShapeContainer {
 public:
  DoubleSliderContainer() { setShape(doubleSlider_); }

 protected:
  /// The ends share one track.
  bool isReversed(std::size_t) const override { return isInverted(); }

 private:
  DoubleSlider doubleSlider_;
};

/// A filter view with its title. The first key is the frequency, whose position is its place in
/// pitch between 20 Hz and 20 kHz; the second is the resonance, whose value is raw.
class FilterViewContainer : public ShapeContainer {
 public:
  FilterViewContainer() { setShape(filterView_); }

  FilterView& filterView() { return filterView_; }
  const FilterView& filterView() const { return filterView_; }

  ValueForm valueForm(std::size_t index) const override {
    return index == 0 ? ValueForm::pitch : ValueForm::raw;
  }

 private:
  FilterView filterView_;
};

/// A low-pass and a high-pass filter in one view. Keys: the low-pass's frequency and resonance, the
/// high-pass's frequency and resonance, then if any the low-pass's and the high-pass's gain.
class DoubleFilterViewContainer : public ShapeContainer {
 public:
  DoubleFilterViewContainer() { setShape(filterView_); }

  DoubleFilterView& filterView() { return filterView_; }
  const DoubleFilterView& filterView() const { return filterView_; }

  ValueForm valueForm(std::size_t index) const override {
    return index == DoubleFilterView::lowPassFrequency || index == DoubleFilterView::hiPassFrequency
               ? ValueForm::pitch
               : ValueForm::raw;
  }

 private:
  DoubleFilterView filterView_;
};

/// Base of the containers of a row of steps, a key for each step. The live value of the own key is
/// the number of the step that plays, from 0, while its modulation flag is up.
class SequencerContainer : public ShapeContainer {
 public:
  void updateModulation() override { sequencer_->setPlayhead(liveValue(0)); }

 protected:
  void setSequencer(SequencerView& sequencer) {
    sequencer_ = &sequencer;
    setShape(sequencer);
  }

 private:
  SequencerView* sequencer_ = nullptr;
};

/// The steps of a sequencer as bars, a key each.
class StepSequencerContainer : public SequencerContainer {
 public:
  StepSequencerContainer() { setSequencer(stepSequencerView_); }

 private:
  StepSequencerView stepSequencerView_;
};

/// The points of a sequencer that glides, a key each.
class CurveSequencerContainer : public SequencerContainer {
 public:
  CurveSequencerContainer() { setSequencer(curveSequencerView_); }

 private:
  CurveSequencerView curveSequencerView_;
};

}  // namespace kestroui

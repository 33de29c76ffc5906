#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/DisplayContainers.h"
#include "KestroUI/ShapeContainers.h"
#include "KestroUI/XYControlContainer.h"

namespace support {

using Keys = std::vector<std::shared_ptr<kestroui::ParamKey>>;

inline Keys keys(const std::vector<std::string>& names) {
  Keys result;
  for (const std::string& name : names)
    result.push_back(std::make_shared<kestroui::ParamKey>(name));
  return result;
}

/// Writes down what a container tells: "[k" and "]k" around a gesture on the key k, "v" for a
/// change, "tap k", "select k" and "delete k".
struct ContainerOwner : kestroui::ContainerDelegate, platform::WeakTarget {
  using Key = std::shared_ptr<kestroui::ParamKey>;

  void didDoubleTap(const Key& key) override { note("tap " + nameOf(key)); }
  void didBeginGesture(kestroui::Container&, const Keys& held) override { note("[" + names(held)); }
  void didEndGesture(kestroui::Container&, const Keys& held) override { note("]" + names(held)); }
  void didSelectMidiMap(const Key& key, kestroui::Container*) override {
    note("select " + nameOf(key));
  }
  void wantToDeleteMidiMap(const Key& key) override { note("delete " + nameOf(key)); }
  void onChange() { note("v"); }

  void listenTo(kestroui::Container& container) {
    container.delegate = this;
    container.addTarget<&ContainerOwner::onChange>(*this, toolkit::ControlEvent::valueChanged);
  }
  std::vector<std::string> take() { return std::exchange(events, {}); }

  std::vector<std::string> events;
  /// Done after each.
  std::function<void()> then;

 private:
  static std::string nameOf(const Key& key) { return key ? key->key() : "nothing"; }
  static std::string names(const Keys& all) {
    std::string result;
    for (const Key& key : all) result += key->key();
    return result;
  }
  void note(std::string event) {
    events.push_back(std::move(event));
    if (const auto action = then) action();
  }
};

/// A kind of container whose values make a shape.
struct ShapeKind {
  const char* name;
  std::function<std::shared_ptr<kestroui::ShapeContainer>()> make;
  /// Separated by blanks.
  const char* keyList;
  /// What a drag does to each key: x and y follow the finger point by point, sideways or upwards;
  /// r, u and d grow to the right, upwards and downwards; - is only shown.
  const char* drags;
  bool showsLive = true;

  std::vector<std::string> keys() const {
    std::vector<std::string> result{""};
    for (const char* c = keyList; *c; ++c)
      if (*c == ' ')
        result.emplace_back();
      else
        result.back() += *c;
    return result;
  }
  /// With every value at `value` of its range.
  std::shared_ptr<kestroui::ShapeContainer> shown(float value) const {
    auto container = make();
    container->setParamKeys(support::keys(keys()));
    for (std::size_t i = 0; i < keys().size(); ++i) {
      container->setKeyRange(i, 0, 1);
      container->showValue(i, value, keys()[i] + " text");
    }
    return container;
  }
};

template <class T>
std::shared_ptr<kestroui::ShapeContainer> makeShape() {
  return std::make_shared<T>();
}

inline std::vector<ShapeKind> shapeKinds() {
  using namespace kestroui;
  return {
      {"envelope", makeShape<ADSRContainer>, "a d s r", "xxyx"},
      {"short envelope", makeShape<ADSRContainer>, "a r", "xx"},
      {"curve", makeShape<SimpleCurveContainer>, "p q r", "yyy"},
      {"table", makeShape<TableWaveshaperContainer>, "p q r s t", "yyyyy"},
      {"wavetable", makeShape<WavetableContainer>, "place level", "yx"},
      {"range", makeShape<DoubleSliderContainer>, "low high", "xx"},
      {"filter", makeShape<FilterViewContainer>, "f r", "xy"},
      {"filters", makeShape<DoubleFilterViewContainer>, "lf lr hf hr lg hg", "xyxyyy"},
      {"steps", makeShape<StepSequencerContainer>, "p q r", "yyy", false},
      {"gliding steps", makeShape<CurveSequencerContainer>, "p q r", "yyy", false},
      {"pad", makeShape<XYControlContainer>, "across up", "xy"},
      {"compressor", makeShape<CompressorViewContainer>,
       "threshold ratio attack release makeUp gainReduction", "rdxxx-"},
      {"two compressors", makeShape<DoubleCompressorViewContainer>,
       "threshold ratio makeUp gainReduction threshold2 ratio2 makeUp2 gainReduction2", "rdx-rdx-"},
      {"band", makeShape<BandCompressorContainer>, "thresh ratio lowFreq highFreq", "ydxx"},
      {"three bands", makeShape<ThreeBandCompressorContainer>,
       "LowThreshold LowRatio LowReduction MidThreshold MidRatio MidReduction HighThreshold "
       "HighRatio HighReduction LowMidFrequency MidHighFrequency",
       "yd-yd-yd-xx"},
      {"waveshaper", makeShape<WaveshaperViewContainer>, "drive shape bias mix", "uxrx"},
      {"grains", makeShape<GranulizerViewContainer>, "position density size spray pitch", "xyryx"},
      {"phaser", makeShape<PhaserViewContainer>, "frequency feedback depth stages", "xyxx"},
      {"ribbons", makeShape<ZorvaViewContainer>, "a b c d e f g", "xyxxxxx"},
      {"sample", makeShape<SampleViewContainer>, "start end loopStart loopEnd head", "xxxx-"},
      {"scope", makeShape<OscilloscopeContainer>, "scope gain", "rx"},
      {"scopes", makeShape<MultiOscilloscopeContainer>, "scope", "r"},
  };
}

}  // namespace support

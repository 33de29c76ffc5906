#include "Orvane/ControlFactory.h"

#include "KestroUI/ChoiceContainers.h"
#include "KestroUI/DisplayContainers.h"
#include "KestroUI/MutableContainer.h"
#include "KestroUI/ShapeContainers.h"
#include "KestroUI/ValueContainers.h"
#include "KestroUI/XYControlContainer.h"
#include "Orvane/AUFilterViewContainer.h"
#include "Orvane/AUValueContainers.h"

namespace orvane {

using kestroui::ControlType;

std::shared_ptr<kestroui::Container> ControlFactory::container(ControlType type) {
  switch (type) {
    case ControlType::slider:
      return std::make_shared<AUSliderContainer>();
    case ControlType::knob:
      return std::make_shared<AUKnobContainer>();
    case ControlType::filter:
      return std::make_shared<AUFilterViewContainer>();
    case ControlType::onOff:
      return std::make_shared<kestroui::OnOffContainer>();
    case ControlType::rec:
      return std::make_shared<kestroui::RecContainer>();
    case ControlType::xyControl:
      return std::make_shared<kestroui::XYControlContainer>();
    case ControlType::timeStopXY:
      return std::make_shared<kestroui::TimeStopXYContainer>();
    case ControlType::stepSequencer:
      return std::make_shared<kestroui::StepSequencerContainer>();
    case ControlType::curveSequencer:
      return std::make_shared<kestroui::CurveSequencerContainer>();
    case ControlType::stepper:
      return std::make_shared<kestroui::StepperContainer>();
    case ControlType::oscilloscope:
      return std::make_shared<kestroui::OscilloscopeContainer>();
    case ControlType::multiOscilloscope:
      return std::make_shared<kestroui::MultiOscilloscopeContainer>();
    case ControlType::adsr:
      return std::make_shared<kestroui::ADSRContainer>();
    case ControlType::sampleView:
      return std::make_shared<kestroui::SampleViewContainer>();
    case ControlType::simpleButton:
      return std::make_shared<kestroui::SimpleButtonContainer>();
    case ControlType::simpleLabel:
      return std::make_shared<kestroui::SimpleLabelContainer>();
    case ControlType::compressor:
      return std::make_shared<kestroui::CompressorViewContainer>();
    case ControlType::doubleCompressor:
      return std::make_shared<kestroui::DoubleCompressorViewContainer>();
    case ControlType::waveshaper:
      return std::make_shared<kestroui::WaveshaperViewContainer>();
    case ControlType::tableWaveshaper:
      return std::make_shared<kestroui::TableWaveshaperContainer>();
    case ControlType::doubleFilter:
      return std::make_shared<kestroui::DoubleFilterViewContainer>();
    case ControlType::granulizer:
      return std::make_shared<kestroui::GranulizerViewContainer>();
    case ControlType::doubleSlider:
      return std::make_shared<kestroui::DoubleSliderContainer>();
    case ControlType::mutableControl:
      return std::make_shared<kestroui::MutableContainer>();
    case ControlType::phaser:
      return std::make_shared<kestroui::PhaserViewContainer>();
    case ControlType::zorva:
      return std::make_shared<kestroui::ZorvaViewContainer>();
    case ControlType::simpleCurve:
      return std::make_shared<kestroui::SimpleCurveContainer>();
    case ControlType::wavetable:
      return std::make_shared<kestroui::WavetableContainer>();
    case ControlType::bandCompressor:
      return std::make_shared<kestroui::BandCompressorContainer>();
    case ControlType::threeBandCompressor:
      return std::make_shared<kestroui::ThreeBandCompressorContainer>();
    case ControlType::bitFlagsGroup:
      return std::make_shared<kestroui::BitFlagsGroupContainer>();
    case ControlType::led:
      return std::make_shared<kestroui::LEDViewContainer>();
    case ControlType::none:
    case ControlType::radioButtons:
    case ControlType::multiple:
    case ControlType::waveformKnob:
    case ControlType::radioWaveForm:
    case ControlType::dropdownList:
      break;
  }
  return nullptr;
}

}  // namespace orvane

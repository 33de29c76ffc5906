#pragma once

#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivstevents.h>
#include <pluginterfaces/vst/ivstparameterchanges.h>

#include <array>
#include <atomic>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace juce_backend {

/// A VST3 component before JUCE's, which takes of a block's automation only where it ends: a block in
/// which a parameter moves is handed on in short parts, each with the values that the host's curves have
/// there, the notes that are in it and its own place in the song. Every other block goes through as
/// it is. The host counts references to it; it holds one to JUCE's.
class AutomatedComponent : public Steinberg::Vst::IComponent,
                           public Steinberg::Vst::IAudioProcessor {
 public:
  using ParamID = Steinberg::Vst::ParamID;
  template <class T>
  using Pointer = Steinberg::IPtr<T>;

  /// How much a part is: longer than a value's smoothing would show, and a fraction of a block.
  static constexpr Steinberg::int32 partFrames = 32;

  /// The parameters of `ramped` move along lines between a host's points; all others (choices,
  /// switches, what stands for a MIDI controller) take each point where it is.
  AutomatedComponent(const Pointer<Steinberg::Vst::IComponent>& component,
                     const Pointer<Steinberg::Vst::IAudioProcessor>& processor,
                     std::shared_ptr<const std::set<ParamID>> ramped);
  virtual ~AutomatedComponent() = default;

  Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID iid, void** found) override;
  Steinberg::uint32 PLUGIN_API addRef() override { return ++references_; }
  Steinberg::uint32 PLUGIN_API release() override;

  Steinberg::tresult PLUGIN_API initialize(Steinberg::FUnknown* context) override {
    return component_->initialize(context);
  }
  Steinberg::tresult PLUGIN_API terminate() override { return component_->terminate(); }
  Steinberg::tresult PLUGIN_API getControllerClassId(Steinberg::TUID id) override {
    return component_->getControllerClassId(id);
  }
  Steinberg::tresult PLUGIN_API setIoMode(Steinberg::Vst::IoMode mode) override {
    return component_->setIoMode(mode);
  }
  Steinberg::int32 PLUGIN_API getBusCount(Steinberg::Vst::MediaType type,
                                          Steinberg::Vst::BusDirection direction) override {
    return component_->getBusCount(type, direction);
  }
  Steinberg::tresult PLUGIN_API getBusInfo(Steinberg::Vst::MediaType type,
                                           Steinberg::Vst::BusDirection direction,
                                           Steinberg::int32 index,
                                           Steinberg::Vst::BusInfo& bus) override {
    return component_->getBusInfo(type, direction, index, bus);
  }
  Steinberg::tresult PLUGIN_API getRoutingInfo(Steinberg::Vst::RoutingInfo& in,
                                               Steinberg::Vst::RoutingInfo& out) override {
    return component_->getRoutingInfo(in, out);
  }
  Steinberg::tresult PLUGIN_API activateBus(Steinberg::Vst::MediaType type,
                                            Steinberg::Vst::BusDirection direction,
                                            Steinberg::int32 index,
                                            Steinberg::TBool state) override {
    return component_->activateBus(type, direction, index, state);
  }
  Steinberg::tresult PLUGIN_API setActive(Steinberg::TBool state) override {
    return component_->setActive(state);
  }
  Steinberg::tresult PLUGIN_API setState(Steinberg::IBStream* state) override {
    return component_->setState(state);
  }
  Steinberg::tresult PLUGIN_API getState(Steinberg::IBStream* state) override {
    return component_->getState(state);
  }

  Steinberg::tresult PLUGIN_API setBusArrangements(Steinberg::Vst::SpeakerArrangement* inputs,
                                                   Steinberg::int32 inputCount,
                                                   Steinberg::Vst::SpeakerArrangement* outputs,
                                                   Steinberg::int32 outputCount) override {
    return processor_->setBusArrangements(inputs, inputCount, outputs, outputCount);
  }
  Steinberg::tresult PLUGIN_API
  getBusArrangement(Steinberg::Vst::BusDirection direction, Steinberg::int32 index,
                    Steinberg::Vst::SpeakerArrangement& arrangement) override {
    return processor_->getBusArrangement(direction, index, arrangement);
  }
  Steinberg::tresult PLUGIN_API canProcessSampleSize(Steinberg::int32 size) override {
    return processor_->canProcessSampleSize(size);
  }
  Steinberg::uint32 PLUGIN_API getLatencySamples() override {
    return processor_->getLatencySamples();
  }
  Steinberg::tresult PLUGIN_API setupProcessing(Steinberg::Vst::ProcessSetup& setup) override;
  Steinberg::tresult PLUGIN_API setProcessing(Steinberg::TBool state) override {
    return processor_->setProcessing(state);
  }
  Steinberg::tresult PLUGIN_API process(Steinberg::Vst::ProcessData& data) override;
  Steinberg::uint32 PLUGIN_API getTailSamples() override { return processor_->getTailSamples(); }

 private:
  /// What lives on the component and is never counted.
  template <class Interface>
  class Uncounted : public Interface {
   public:
    virtual ~Uncounted() = default;
    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID, void** found) override {
      *found = nullptr;
      return Steinberg::kNoInterface;
    }
    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }
    Steinberg::uint32 PLUGIN_API release() override { return 1; }
  };

  /// The automation of one parameter within a part: some of a host's points, or one value.
  class PartQueue : public Uncounted<Steinberg::Vst::IParamValueQueue> {
   public:
    void set(ParamID id, double value);
    void set(Steinberg::Vst::IParamValueQueue& source, Steinberg::int32 firstPoint,
             Steinberg::int32 count, Steinberg::int32 start);
    ParamID PLUGIN_API getParameterId() override { return id_; }
    Steinberg::int32 PLUGIN_API getPointCount() override { return count_; }
    Steinberg::tresult PLUGIN_API getPoint(Steinberg::int32 index, Steinberg::int32& offset,
                                           Steinberg::Vst::ParamValue& value) override;
    Steinberg::tresult PLUGIN_API addPoint(Steinberg::int32, Steinberg::Vst::ParamValue,
                                           Steinberg::int32&) override {
      return Steinberg::kResultFalse;
    }

   private:
    ParamID id_ = 0;
    Steinberg::Vst::IParamValueQueue* source_ = nullptr;
    Steinberg::int32 firstPoint_ = 0, count_ = 0, start_ = 0;
    double value_ = 0;
  };

  struct PartChanges : Uncounted<Steinberg::Vst::IParameterChanges> {
    Steinberg::int32 PLUGIN_API getParameterCount() override { return count; }
    Steinberg::Vst::IParamValueQueue* PLUGIN_API getParameterData(Steinberg::int32 index) override {
      return index >= 0 && index < count ? &queues[static_cast<std::size_t>(index)] : nullptr;
    }
    Steinberg::Vst::IParamValueQueue* PLUGIN_API addParameterData(const ParamID&,
                                                                  Steinberg::int32&) override {
      return nullptr;
    }
    std::array<PartQueue, 256> queues;
    Steinberg::int32 count = 0;
  };

  struct PartEvents : Uncounted<Steinberg::Vst::IEventList> {
    Steinberg::int32 PLUGIN_API getEventCount() override { return count; }
    Steinberg::tresult PLUGIN_API getEvent(Steinberg::int32 index,
                                           Steinberg::Vst::Event& event) override;
    Steinberg::tresult PLUGIN_API addEvent(Steinberg::Vst::Event&) override {
      return Steinberg::kResultFalse;
    }
    Steinberg::Vst::IEventList* source = nullptr;
    Steinberg::int32 first = 0, count = 0, start = 0;
  };

  bool isCut(const Steinberg::Vst::ProcessData& data) const;
  double valueAt(Steinberg::Vst::IParamValueQueue& queue, Steinberg::int32 frame) const;
  void takeChanges(Steinberg::Vst::IParameterChanges& changes, Steinberg::int32 start,
                   Steinberg::int32 end);
  void takeEvents(Steinberg::Vst::IEventList& events, Steinberg::int32 end, bool isLast);
  void takeBuses(Steinberg::Vst::ProcessData& part, const Steinberg::Vst::ProcessData& whole,
                 Steinberg::int32 start);
  /// The values that curves of the next block begin at.
  void noteLast(Steinberg::Vst::IParameterChanges* changes);

  static constexpr std::size_t maximumBuses = 4, maximumChannels = 8;

  std::atomic<Steinberg::uint32> references_{1};
  Pointer<Steinberg::Vst::IComponent> component_;
  Pointer<Steinberg::Vst::IAudioProcessor> processor_;
  const std::shared_ptr<const std::set<ParamID>> ramped_;

  // Of the audio thread.
  /// Of every ramped parameter, negative before there is one.
  std::map<ParamID, double> last_;
  double sampleRate_ = 44100;
  PartChanges changes_;
  PartEvents events_;
  Steinberg::Vst::ProcessContext context_{};
  std::array<Steinberg::Vst::AudioBusBuffers, 2 * maximumBuses> buses_{};
  std::array<std::array<void*, maximumChannels>, 2 * maximumBuses> channels_{};
};

}  // namespace juce_backend

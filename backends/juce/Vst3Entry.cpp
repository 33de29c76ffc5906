// The entry of a VST3: JUCE's factory, whose components get an AutomatedComponent before them.
// JUCE's own entry is compiled under the name that is declared here.

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>
#include <set>

#include "Orvane/PluginEntry.h"
#include "backends/juce/AudioUnitParameter.h"
#include "backends/juce/AutomatedComponent.h"

#undef GetPluginFactory

const orvane::PluginEntry& orvanePluginEntry();
extern "C" Steinberg::IPluginFactory* PLUGIN_API orvaneJuceFactory();

namespace {

using namespace Steinberg;
using juce_backend::AutomatedComponent;

/// The parameters that a host's curves may lead through any value, by the numbers that JUCE gives
/// them: the hash of their key.
std::shared_ptr<const std::set<Vst::ParamID>> rampedParameters() {
  static const auto all = [] {
    auto ids = std::make_shared<std::set<Vst::ParamID>>();
    const auto unit = orvanePluginEntry().createAudioUnit();
    for (const std::string& key : unit->parametersKeys()) {
      platform::AUParameter* const parameter = unit->parameter(key);
      if (!parameter) continue;
      const juce_backend::AudioUnitParameter seen(*parameter, 0);
      if (seen.isDiscrete()) continue;
      // JUCE keeps the highest bit clear, for a host that takes these numbers to be signed.
      ids->insert(static_cast<Vst::ParamID>(seen.getParameterID().hashCode()) & 0x7fffffffu);
    }
    return ids;
  }();
  return all;
}

class Factory : public IPluginFactory3 {
 public:
  explicit Factory(const IPtr<IPluginFactory3>& juce) : juce_(juce) {}
  virtual ~Factory() = default;

  tresult PLUGIN_API queryInterface(const TUID iid, void** found) override {
    for (const FUID& known :
         {FUnknown::iid, IPluginFactory::iid, IPluginFactory2::iid, IPluginFactory3::iid}) {
      if (!FUnknownPrivate::iidEqual(iid, known)) continue;
      addRef();
      *found = static_cast<IPluginFactory3*>(this);
      return kResultOk;
    }
    *found = nullptr;
    return kNoInterface;
  }
  uint32 PLUGIN_API addRef() override { return ++references_; }
  uint32 PLUGIN_API release() override {
    const uint32 left = --references_;
    if (left == 0) delete this;
    return left;
  }
  tresult PLUGIN_API getFactoryInfo(PFactoryInfo* info) override {
    return juce_->getFactoryInfo(info);
  }
  int32 PLUGIN_API countClasses() override { return juce_->countClasses(); }
  tresult PLUGIN_API getClassInfo(int32 index, PClassInfo* info) override {
    return juce_->getClassInfo(index, info);
  }
  tresult PLUGIN_API getClassInfo2(int32 index, PClassInfo2* info) override {
    return juce_->getClassInfo2(index, info);
  }
  tresult PLUGIN_API getClassInfoUnicode(int32 index, PClassInfoW* info) override {
    return juce_->getClassInfoUnicode(index, info);
  }
  tresult PLUGIN_API setHostContext(FUnknown* context) override {
    return juce_->setHostContext(context);
  }
  tresult PLUGIN_API createInstance(FIDString cid, FIDString iid, void** made) override {
    FUnknown* given = nullptr;
    const tresult result = juce_->createInstance(cid, iid, reinterpret_cast<void**>(&given));
    *made = given;
    if (result != kResultOk || !given) return result;
    const auto instance = IPtr<FUnknown>::adopt(given);
    const FUnknownPtr<Vst::IComponent> component(instance.get());
    const FUnknownPtr<Vst::IAudioProcessor> processor(instance.get());
    // The controller is as it is.
    if (!component || !processor) {
      instance->addRef();
      return kResultOk;
    }
    auto* const automated =
        new AutomatedComponent(IPtr<Vst::IComponent>(component),
                               IPtr<Vst::IAudioProcessor>(processor), rampedParameters());
    const tresult found = automated->queryInterface(iid, made);
    automated->release();
    return found;
  }

 private:
  std::atomic<uint32> references_{1};
  IPtr<IPluginFactory3> juce_;
};

}  // namespace

extern "C" SMTG_EXPORT_SYMBOL IPluginFactory* PLUGIN_API GetPluginFactory() {
  const auto juce = IPtr<IPluginFactory>::adopt(orvaneJuceFactory());
  const FUnknownPtr<IPluginFactory3> whole(juce.get());
  return whole ? new Factory(IPtr<IPluginFactory3>(whole)) : nullptr;
}

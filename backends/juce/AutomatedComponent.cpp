#include "backends/juce/AutomatedComponent.h"

#include <algorithm>
#include <utility>

namespace juce_backend {

using namespace Steinberg;
using namespace Steinberg::Vst;

AutomatedComponent::AutomatedComponent(const Pointer<IComponent>& component,
                                       const Pointer<IAudioProcessor>& processor,
                                       std::shared_ptr<const std::set<ParamID>> ramped)
    : component_(component), processor_(processor), ramped_(std::move(ramped)) {
  for (const ParamID id : *ramped_) last_[id] = -1;
}

tresult PLUGIN_API AutomatedComponent::queryInterface(const TUID iid, void** found) {
  if (FUnknownPrivate::iidEqual(iid, IAudioProcessor::iid)) {
    *found = static_cast<IAudioProcessor*>(this);
  } else if (FUnknownPrivate::iidEqual(iid, FUnknown::iid) ||
             FUnknownPrivate::iidEqual(iid, IPluginBase::iid) ||
             FUnknownPrivate::iidEqual(iid, IComponent::iid)) {
    *found = static_cast<IComponent*>(this);
  } else {
    return component_->queryInterface(iid, found);
  }
  addRef();
  return kResultOk;
}

uint32 PLUGIN_API AutomatedComponent::release() {
  const uint32 left = --references_;
  if (left == 0) delete this;
  return left;
}

tresult PLUGIN_API AutomatedComponent::setupProcessing(ProcessSetup& setup) {
  sampleRate_ = setup.sampleRate;
  return processor_->setupProcessing(setup);
}

void AutomatedComponent::PartQueue::set(ParamID id, double value) {
  id_ = id;
  source_ = nullptr;
  count_ = 1;
  value_ = value;
}

void AutomatedComponent::PartQueue::set(IParamValueQueue& source, int32 firstPoint, int32 count,
                                        int32 start) {
  id_ = source.getParameterId();
  source_ = &source;
  firstPoint_ = firstPoint;
  count_ = count;
  start_ = start;
}

tresult PLUGIN_API AutomatedComponent::PartQueue::getPoint(int32 index, int32& offset,
                                                           ParamValue& value) {
  if (index < 0 || index >= count_) return kResultFalse;
  if (!source_) {
    offset = 0;
    value = value_;
    return kResultTrue;
  }
  const tresult result = source_->getPoint(firstPoint_ + index, offset, value);
  offset = std::max(0, offset - start_);
  return result;
}

tresult PLUGIN_API AutomatedComponent::PartEvents::getEvent(int32 index, Event& event) {
  if (index < 0 || index >= count) return kResultFalse;
  const tresult result = source->getEvent(first + index, event);
  event.sampleOffset = std::max(0, event.sampleOffset - start);
  return result;
}

bool AutomatedComponent::isCut(const ProcessData& data) const {
  IParameterChanges* const changes = data.inputParameterChanges;
  if (!changes || data.numSamples <= partFrames) return false;
  // What does not fit here is automated as coarsely as JUCE does it.
  if (changes->getParameterCount() > static_cast<int32>(changes_.queues.size())) return false;
  const auto fits = [](const AudioBusBuffers* buses, int32 count) {
    if (count > static_cast<int32>(maximumBuses) || (count > 0 && !buses)) return false;
    return std::all_of(buses, buses + count, [](const AudioBusBuffers& bus) {
      return bus.numChannels <= static_cast<int32>(maximumChannels) &&
             (bus.numChannels == 0 || bus.channelBuffers32);
    });
  };
  if (!fits(data.inputs, data.numInputs) || !fits(data.outputs, data.numOutputs)) return false;
  for (int32 i = 0; i < changes->getParameterCount(); ++i) {
    IParamValueQueue* const queue = changes->getParameterData(i);
    const int32 points = queue ? queue->getPointCount() : 0;
    int32 offset = 0;
    ParamValue value = 0;
    if (points > 0 && queue->getPoint(points - 1, offset, value) == kResultTrue &&
        offset >= partFrames)
      return true;
  }
  return false;
}

double AutomatedComponent::valueAt(IParamValueQueue& queue, int32 frame) const {
  double before = last_.at(queue.getParameterId());
  int32 beforeFrame = -1;
  for (int32 i = 0; i < queue.getPointCount(); ++i) {
    int32 offset = 0;
    ParamValue value = 0;
    if (queue.getPoint(i, offset, value) != kResultTrue) continue;
    if (offset > frame) {
      if (before < 0) return value;
      const double way = static_cast<double>(frame - beforeFrame) / (offset - beforeFrame);
      return before + way * (value - before);
    }
    before = value;
    beforeFrame = offset;
  }
  return before;
}

void AutomatedComponent::takeChanges(IParameterChanges& changes, int32 start, int32 end) {
  changes_.count = 0;
  for (int32 i = 0; i < changes.getParameterCount(); ++i) {
    IParamValueQueue* const queue = changes.getParameterData(i);
    if (!queue || queue->getPointCount() == 0) continue;
    PartQueue& taken = changes_.queues[static_cast<std::size_t>(changes_.count)];
    if (ramped_->count(queue->getParameterId()) != 0) {
      // Where the part ends, so that the last one has what the host sees next.
      taken.set(queue->getParameterId(), valueAt(*queue, end - 1));
      ++changes_.count;
      continue;
    }
    int32 first = 0, count = 0, offset = 0;
    ParamValue value = 0;
    for (int32 point = 0; point < queue->getPointCount(); ++point) {
      if (queue->getPoint(point, offset, value) != kResultTrue || offset >= end) break;
      if (offset < start)
        ++first;
      else
        ++count;
    }
    if (count == 0) continue;
    taken.set(*queue, first, count, start);
    ++changes_.count;
  }
}

void AutomatedComponent::takeEvents(IEventList& events, int32 end, bool isLast) {
  // They come in the order of time.
  events_.first += events_.count;
  events_.count = 0;
  Event event{};
  while (events_.first + events_.count < events.getEventCount()) {
    const bool isThere = events.getEvent(events_.first + events_.count, event) == kResultTrue;
    if (isThere && event.sampleOffset >= end && !isLast) break;
    ++events_.count;
  }
}

void AutomatedComponent::takeBuses(ProcessData& part, const ProcessData& whole, int32 start) {
  const auto take = [&](const AudioBusBuffers* given, int32 count, std::size_t first) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
      AudioBusBuffers& bus = buses_[first + i];
      auto& channels = channels_[first + i];
      bus = given[i];
      for (std::size_t channel = 0; channel < static_cast<std::size_t>(bus.numChannels);
           ++channel) {
        channels[channel] = nullptr;
        if (whole.symbolicSampleSize == kSample64) {
          if (given[i].channelBuffers64[channel])
            channels[channel] = given[i].channelBuffers64[channel] + start;
        } else if (given[i].channelBuffers32[channel]) {
          channels[channel] = given[i].channelBuffers32[channel] + start;
        }
      }
      // Both names are one pointer.
      bus.channelBuffers32 = reinterpret_cast<Sample32**>(channels.data());
    }
    return count > 0 ? &buses_[first] : nullptr;
  };
  part.inputs = take(whole.inputs, whole.numInputs, 0);
  part.outputs = take(whole.outputs, whole.numOutputs, maximumBuses);
}

void AutomatedComponent::noteLast(IParameterChanges* changes) {
  for (int32 i = 0; changes && i < changes->getParameterCount(); ++i) {
    IParamValueQueue* const queue = changes->getParameterData(i);
    if (!queue || queue->getPointCount() == 0) continue;
    const auto found = last_.find(queue->getParameterId());
    int32 offset = 0;
    ParamValue value = 0;
    if (found != last_.end() &&
        queue->getPoint(queue->getPointCount() - 1, offset, value) == kResultTrue)
      found->second = value;
  }
}

tresult PLUGIN_API AutomatedComponent::process(ProcessData& data) {
  if (!isCut(data)) {
    const tresult result = processor_->process(data);
    noteLast(data.inputParameterChanges);
    return result;
  }
  tresult result = kResultOk;
  events_.source = data.inputEvents;
  events_.first = events_.count = 0;
  for (int32 start = 0; start < data.numSamples; start += partFrames) {
    const int32 end = std::min(data.numSamples, start + partFrames);
    const bool isLast = end == data.numSamples;
    ProcessData part = data;
    part.numSamples = end - start;
    takeChanges(*data.inputParameterChanges, start, end);
    part.inputParameterChanges = &changes_;
    // What it tells of has no place in the block: once is enough.
    if (!isLast) part.outputParameterChanges = nullptr;
    if (data.inputEvents) {
      takeEvents(*data.inputEvents, end, isLast);
      events_.start = start;
      part.inputEvents = &events_;
    }
    takeBuses(part, data, start);
    if (data.processContext) {
      context_ = *data.processContext;
      if ((context_.state & ProcessContext::kPlaying) != 0) {
        context_.projectTimeSamples += start;
        context_.projectTimeMusic += start / sampleRate_ * context_.tempo / 60;
      }
      context_.continousTimeSamples += start;
      part.processContext = &context_;
    }
    const tresult partResult = processor_->process(part);
    if (partResult != kResultOk) result = partResult;
    for (int32 i = 0; i < data.numOutputs; ++i) {
      AudioBusBuffers& whole = data.outputs[i];
      const uint64 silent = part.outputs[i].silenceFlags;
      whole.silenceFlags = start == 0 ? silent : whole.silenceFlags & silent;
    }
  }
  noteLast(data.inputParameterChanges);
  return result;
}

}  // namespace juce_backend

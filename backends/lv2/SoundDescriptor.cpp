#include "backends/lv2/SoundDescriptor.h"

#include <lv2/state/state.h>
#include <lv2/worker/worker.h>

#include <cstdio>
#include <exception>
#include <string_view>

#include "backends/lv2/SoundInstance.h"
#include "backends/lv2/Uris.h"

namespace lv2_backend {
namespace {

SoundInstance& instance(LV2_Handle handle) { return *static_cast<SoundInstance*>(handle); }

LV2_State_Status save(LV2_Handle handle, LV2_State_Store_Function store, LV2_State_Handle state,
                      std::uint32_t, const LV2_Feature* const*) {
  return instance(handle).save(store, state);
}

LV2_State_Status restore(LV2_Handle handle, LV2_State_Retrieve_Function retrieve,
                         LV2_State_Handle state, std::uint32_t, const LV2_Feature* const*) {
  return instance(handle).restore(retrieve, state);
}

LV2_Worker_Status work(LV2_Handle handle, LV2_Worker_Respond_Function, LV2_Worker_Respond_Handle,
                       std::uint32_t size, const void* request) {
  instance(handle).work({static_cast<const char*>(request), size});
  return LV2_WORKER_SUCCESS;
}

LV2_Worker_Status workResponse(LV2_Handle, std::uint32_t, const void*) {
  return LV2_WORKER_SUCCESS;
}

const void* extensionData(const char* uri) {
  static constexpr LV2_State_Interface stateInterface{save, restore};
  static constexpr LV2_Worker_Interface workerInterface{work, workResponse, nullptr};
  if (std::string_view(uri) == LV2_STATE__interface) return &stateInterface;
  if (std::string_view(uri) == LV2_WORKER__interface) return &workerInterface;
  return nullptr;
}

}  // namespace

SoundDescriptor::SoundDescriptor(const orvane::PluginEntry& entry)
    : LV2_Descriptor{}, entry_(entry), uri_(pluginUri(entry)) {
  URI = uri_.c_str();
  instantiate = makeInstance;
  connect_port = [](LV2_Handle handle, std::uint32_t port, void* buffer) {
    instance(handle).connectPort(port, buffer);
  };
  activate = [](LV2_Handle handle) { instance(handle).activate(); };
  run = [](LV2_Handle handle, std::uint32_t frames) { instance(handle).run(frames); };
  deactivate = [](LV2_Handle handle) { instance(handle).deactivate(); };
  cleanup = [](LV2_Handle handle) { delete &instance(handle); };
  extension_data = extensionData;
}

LV2_Handle SoundDescriptor::makeInstance(const LV2_Descriptor* descriptor, double sampleRate,
                                         const char* /*bundlePath*/,
                                         const LV2_Feature* const* features) {
  const orvane::PluginEntry& entry = static_cast<const SoundDescriptor*>(descriptor)->entry_;
  try {
    return new SoundInstance(entry, sampleRate, features);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s cannot be made: %s\n", entry.name.c_str(), error.what());
    return nullptr;
  }
}

}  // namespace lv2_backend

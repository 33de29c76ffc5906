#include "backends/lv2/EditorDescriptor.h"

#include <lv2/options/options.h>

#include <cstdint>
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "backends/lv2/EditorInstance.h"
#include "backends/lv2/Urids.h"
#include "backends/lv2/Uris.h"

namespace lv2_backend {
namespace {

EditorInstance& instance(LV2UI_Handle handle) { return *static_cast<EditorInstance*>(handle); }

int idle(LV2UI_Handle handle) {
  instance(handle).idle();
  return 0;
}

int resize(LV2UI_Feature_Handle handle, int width, int height) {
  instance(handle).resize(width, height);
  return 0;
}

const void* extensionData(const char* uri) {
  static constexpr LV2UI_Idle_Interface idleInterface{idle};
  static constexpr LV2UI_Resize resizeInterface{nullptr, resize};
  if (std::string_view(uri) == LV2_UI__idleInterface) return &idleInterface;
  if (std::string_view(uri) == LV2_UI__resize) return &resizeInterface;
  return nullptr;
}

double scaleFactor(const LV2_Feature* const* features, const LV2_URID_Map& map) {
  const Urids urids(map);
  const auto* option = findFeature<LV2_Options_Option>(features, LV2_OPTIONS__options);
  for (; option && option->key; ++option) {
    if (option->key != urids.scaleFactor || option->type != urids.atomFloat) continue;
    const float scale = *static_cast<const float*>(option->value);
    if (scale >= 0.5f && scale <= 4) return scale;
  }
  return 1;
}

}  // namespace

EditorDescriptor::EditorDescriptor(const orvane::PluginEntry& entry, bool takesMidi)
    : LV2UI_Descriptor{}, entry_(entry), takesMidi_(takesMidi), uri_(editorUri(entry)) {
  URI = uri_.c_str();
  instantiate = makeInstance;
  cleanup = [](LV2UI_Handle handle) { delete &instance(handle); };
  port_event = [](LV2UI_Handle handle, std::uint32_t port, std::uint32_t size, std::uint32_t format,
                  const void* data) { instance(handle).portEvent(port, size, format, data); };
  extension_data = extensionData;
}

LV2UI_Handle EditorDescriptor::makeInstance(const LV2UI_Descriptor* descriptor,
                                            const char* /*pluginUri*/, const char* /*bundlePath*/,
                                            LV2UI_Write_Function write, LV2UI_Controller controller,
                                            LV2UI_Widget* widget,
                                            const LV2_Feature* const* features) {
  const auto& self = *static_cast<const EditorDescriptor*>(descriptor);
  const orvane::PluginEntry& entry = self.entry_;
  try {
    EditorHost host;
    host.write = write;
    host.controller = controller;
    host.map = findFeature<LV2_URID_Map>(features, LV2_URID__map);
    host.touch = findFeature<LV2UI_Touch>(features, LV2_UI__touch);
    EditorInstance::Place place;
    // The feature's data is the window's number itself.
    place.parent = reinterpret_cast<std::uintptr_t>(findFeature<void>(features, LV2_UI__parent));
    place.resize = findFeature<LV2UI_Resize>(features, LV2_UI__resize);
    if (!host.map || !place.parent)
      throw std::runtime_error("The host has no urid:map or no window");
    place.scale = scaleFactor(features, *host.map);
    place.takesMidi = self.takesMidi_;
    auto editor = std::make_unique<EditorInstance>(entry, host, place);
    *widget = editor->widget();
    return editor.release();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The editor of %s cannot be made: %s\n", entry.name.c_str(), error.what());
    return nullptr;
  }
}

}  // namespace lv2_backend

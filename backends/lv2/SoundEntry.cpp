#include <lv2/core/lv2.h>

#include "Orvane/PluginEntry.h"
#include "backends/lv2/SoundDescriptor.h"

const orvane::PluginEntry& orvanePluginEntry();

/// Compiled into every plug-in's library of sound; hosts ask for descriptors until one is null.
LV2_SYMBOL_EXPORT const LV2_Descriptor* lv2_descriptor(std::uint32_t index) {
  static const lv2_backend::SoundDescriptor descriptor(orvanePluginEntry());
  return index == 0 ? &descriptor : nullptr;
}

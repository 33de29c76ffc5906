#include <lv2/ui/ui.h>

#include "Orvane/PluginEntry.h"
#include "backends/lv2/EditorDescriptor.h"

const orvane::PluginEntry& orvanePluginEntry();

/// Compiled into every plug-in's library of the editor; hosts ask until one is null.
LV2_SYMBOL_EXPORT const LV2UI_Descriptor* lv2ui_descriptor(std::uint32_t index) {
  static const lv2_backend::EditorDescriptor descriptor(orvanePluginEntry(),
                                                        ORVANE_MIDI_INPUT != 0);
  return index == 0 ? &descriptor : nullptr;
}

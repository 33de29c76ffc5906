#pragma once

#include <lv2/ui/ui.h>

#include <string>

#include "Orvane/PluginEntry.h"

namespace lv2_backend {

/// What an LV2 host loads: the C functions of a plug-in's editor.
class EditorDescriptor : public LV2UI_Descriptor {
 public:
  /// `entry` outlives the descriptor, and the descriptor every editor. Without MIDI the editor does not
  /// offer to learn it.
  EditorDescriptor(const orvane::PluginEntry& entry, bool takesMidi);
  EditorDescriptor(const EditorDescriptor&) = delete;
  EditorDescriptor& operator=(const EditorDescriptor&) = delete;

 private:
  static LV2UI_Handle makeInstance(const LV2UI_Descriptor* descriptor, const char* pluginUri,
                                   const char* bundlePath, LV2UI_Write_Function write,
                                   LV2UI_Controller controller, LV2UI_Widget* widget,
                                   const LV2_Feature* const* features);

  const orvane::PluginEntry& entry_;
  const bool takesMidi_;
  std::string uri_;
};

}  // namespace lv2_backend

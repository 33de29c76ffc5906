#pragma once

#include <lv2/core/lv2.h>

#include <memory>
#include <string>

#include "Orvane/PluginEntry.h"

namespace lv2_backend {

/// What an LV2 host loads: the C functions of a plug-in's sound.
class SoundDescriptor : public LV2_Descriptor {
 public:
  /// `entry` outlives the descriptor, and the descriptor every instance.
  explicit SoundDescriptor(const orvane::PluginEntry& entry);
  SoundDescriptor(const SoundDescriptor&) = delete;
  SoundDescriptor& operator=(const SoundDescriptor&) = delete;

 private:
  static LV2_Handle makeInstance(const LV2_Descriptor* descriptor, double sampleRate,
                                 const char* bundlePath, const LV2_Feature* const* features);

  const orvane::PluginEntry& entry_;
  std::string uri_;
};

}  // namespace lv2_backend

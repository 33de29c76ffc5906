#pragma once

#include "Orvane/Preset.h"

namespace orvane {

/// A preset that the audio unit itself provides.
class FactoryPreset : public Preset {
 public:
  using Preset::Preset;
};

}  // namespace orvane

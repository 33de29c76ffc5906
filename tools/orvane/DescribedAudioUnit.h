#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Quillon/CommonAudioUnit.h"
#include "tools/orvane/DescribedPlugin.h"

namespace tool {

/// The audio unit of a described plug-in: all its parameters and presets, and silence. Its live
/// values and modulation flags are set by hand.
class DescribedAudioUnit : public quillon::CommonAudioUnit {
 public:
  explicit DescribedAudioUnit(const DescribedPlugin& plugin);

  /// False for an unknown key.
  bool setLive(std::string_view key, float value);
  bool setModulating(std::string_view key, bool modulating);

  /// A described plug-in has an identifier whenever it has presets of its own.
  bool hasStore() const override { return hasStore_; }
  std::string presetExtension() const override { return presetExtension_; }

  void render(const platform::RenderBlock& block) override;

 private:
  const bool hasStore_;
  const std::string presetExtension_;
};

}  // namespace tool

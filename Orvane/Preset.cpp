#include "Orvane/Preset.h"

#include <utility>

namespace orvane {

Preset::Preset(const platform::AUAudioUnitPreset& unitPreset)
    : name(unitPreset.name), id(unitPreset.number), preset(unitPreset) {}

Preset::Preset(std::string presetName) : name(std::move(presetName)) {}

Preset::Preset(const platform::KestroAUPreset& record) : Preset(record.preset) {
  categories = record.categories;
  bankName = record.bankName;
  presetPackID = record.presetPackID;
}

}  // namespace orvane

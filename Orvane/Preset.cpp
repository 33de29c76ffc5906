#include "Orvane/Preset.h"

#include <utility>

#include "platform/FilePath.h"

namespace orvane {

Preset::Preset(const platform::AUAudioUnitPreset& unitPreset)
    : name(unitPreset.name), id(unitPreset.number), preset(unitPreset) {}

Preset::Preset(std::string presetName) : name(std::move(presetName)) {}

Preset::Preset(const platform::KestroAUPreset& record) : Preset(record.preset) {
  categories = record.categories;
  bankName = record.bankName;
  presetPackID = record.presetPackID;
}

UserPreset::UserPreset(std::string path, bool liesInICloud)
    : Preset(platform::fileStem(path)), isICloud(liesInICloud), url(std::move(path)) {
  bankName = "USER";
  isUserPreset = true;
}

}  // namespace orvane

#include "Orvane/UserPreset.h"

#include <utility>

#include "platform/FilePath.h"

namespace orvane {

UserPreset::UserPreset(std::string path, bool liesInICloud)
    : Preset(platform::fileStem(path)), isICloud(liesInICloud), url(std::move(path)) {
  bankName = "USER";
  isUserPreset = true;
}

}  // namespace orvane

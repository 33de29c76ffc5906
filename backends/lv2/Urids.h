#pragma once

#include <lv2/core/lv2.h>
#include <lv2/urid/urid.h>

#include <string_view>

namespace lv2_backend {

/// The data of a host's feature, or null when the host does not have it.
template <class Data>
const Data* findFeature(const LV2_Feature* const* features, std::string_view uri) {
  for (; features && *features; ++features)
    if ((*features)->URI == uri) return static_cast<const Data*>((*features)->data);
  return nullptr;
}

/// The host's numbers for every URI that is used at run time.
struct Urids {
  explicit Urids(const LV2_URID_Map& map);

  LV2_URID atomBlank, atomBool, atomDouble, atomEventTransfer, atomFloat, atomInt, atomLong,
      atomObject, atomString, atomVector;
  LV2_URID maxBlockLength, midiEvent, scaleFactor;
  LV2_URID timePosition, timeBar, timeBarBeat, timeBeat, timeBeatsPerBar, timeBeatsPerMinute,
      timeSpeed;
  LV2_URID state, editorOpened, editorClosed, midiWanted, midiUnwanted, stateChanged, liveValues,
      liveSound, ownValues, indices, sound, values, modulating;
};

}  // namespace lv2_backend

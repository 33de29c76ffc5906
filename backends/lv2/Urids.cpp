#include "backends/lv2/Urids.h"

#include <lv2/atom/atom.h>
#include <lv2/buf-size/buf-size.h>
#include <lv2/midi/midi.h>
#include <lv2/time/time.h>
#include <lv2/ui/ui.h>

#include "backends/lv2/Uris.h"

namespace lv2_backend {

Urids::Urids(const LV2_URID_Map& map) {
  const auto id = [&map](const char* text) { return map.map(map.handle, text); };
  atomBlank = id(LV2_ATOM__Blank);
  atomBool = id(LV2_ATOM__Bool);
  atomDouble = id(LV2_ATOM__Double);
  atomEventTransfer = id(LV2_ATOM__eventTransfer);
  atomFloat = id(LV2_ATOM__Float);
  atomInt = id(LV2_ATOM__Int);
  atomLong = id(LV2_ATOM__Long);
  atomObject = id(LV2_ATOM__Object);
  atomString = id(LV2_ATOM__String);
  atomVector = id(LV2_ATOM__Vector);
  maxBlockLength = id(LV2_BUF_SIZE__maxBlockLength);
  midiEvent = id(LV2_MIDI__MidiEvent);
  scaleFactor = id(LV2_UI__scaleFactor);
  timePosition = id(LV2_TIME__Position);
  timeBar = id(LV2_TIME__bar);
  timeBarBeat = id(LV2_TIME__barBeat);
  timeBeat = id(LV2_TIME__beat);
  timeBeatsPerBar = id(LV2_TIME__beatsPerBar);
  timeBeatsPerMinute = id(LV2_TIME__beatsPerMinute);
  timeSpeed = id(LV2_TIME__speed);
  state = id(uri::state);
  editorOpened = id(uri::editorOpened);
  editorClosed = id(uri::editorClosed);
  midiWanted = id(uri::midiWanted);
  midiUnwanted = id(uri::midiUnwanted);
  stateChanged = id(uri::stateChanged);
  liveValues = id(uri::liveValues);
  liveSound = id(uri::liveSound);
  ownValues = id(uri::ownValues);
  indices = id(uri::indices);
  sound = id(uri::sound);
  values = id(uri::values);
  modulating = id(uri::modulating);
}

}  // namespace lv2_backend

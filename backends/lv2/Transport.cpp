#include "backends/lv2/Transport.h"

#include <lv2/atom/util.h>

#include <cmath>
#include <optional>

namespace lv2_backend {
namespace {

// Hosts differ in the types that they send.
std::optional<double> number(const LV2_Atom* atom, const Urids& urids) {
  if (!atom) return {};
  double value = 0;
  if (atom->type == urids.atomDouble) {
    value = reinterpret_cast<const LV2_Atom_Double*>(atom)->body;
  } else if (atom->type == urids.atomFloat) {
    value = reinterpret_cast<const LV2_Atom_Float*>(atom)->body;
  } else if (atom->type == urids.atomLong) {
    value = static_cast<double>(reinterpret_cast<const LV2_Atom_Long*>(atom)->body);
  } else if (atom->type == urids.atomInt) {
    value = reinterpret_cast<const LV2_Atom_Int*>(atom)->body;
  } else {
    return {};
  }
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace

void Transport::read(const LV2_Atom_Object& position) {
  const LV2_Atom* bar = nullptr;
  const LV2_Atom* barBeat = nullptr;
  const LV2_Atom* beat = nullptr;
  const LV2_Atom* beatsPerBar = nullptr;
  const LV2_Atom* beatsPerMinute = nullptr;
  const LV2_Atom* speed = nullptr;
  lv2_atom_object_get(&position, urids_.timeBar, &bar, urids_.timeBarBeat, &barBeat,
                      urids_.timeBeat, &beat, urids_.timeBeatsPerBar, &beatsPerBar,
                      urids_.timeBeatsPerMinute, &beatsPerMinute, urids_.timeSpeed, &speed, 0);

  if (const auto tempo = number(beatsPerMinute, urids_); tempo && *tempo > 0)
    transport_.tempo = *tempo;
  if (const auto value = number(speed, urids_)) transport_.isPlaying = *value != 0;
  if (const auto value = number(beatsPerBar, urids_); value && *value > 0) beatsPerBar_ = *value;
  if (const auto value = number(beat, urids_)) {
    transport_.beatPosition = *value;
  } else if (const auto inBar = number(barBeat, urids_)) {
    transport_.beatPosition = number(bar, urids_).value_or(0) * beatsPerBar_ + *inBar;
  }
}

void Transport::advance(std::uint32_t frames) {
  if (transport_.isPlaying) transport_.beatPosition += frames / sampleRate_ * transport_.tempo / 60;
}

}  // namespace lv2_backend

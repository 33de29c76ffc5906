#pragma once

#include "platform/AUParameter.h"

namespace platform {

/// What follows a number in this unit, a blank included where one belongs; empty for a unit without
/// a name.
constexpr const char* unitSuffix(AudioUnitParameterUnit unit) {
  using Unit = AudioUnitParameterUnit;
  switch (unit) {
    case Unit::percent:
      return " %";
    case Unit::seconds:
      return " s";
    case Unit::milliseconds:
      return " ms";
    case Unit::hertz:
      return " Hz";
    case Unit::cents:
    case Unit::absoluteCents:
      return " ct";
    case Unit::relativeSemiTones:
      return " st";
    case Unit::octaves:
      return " oct";
    case Unit::decibels:
      return " dB";
    case Unit::degrees:
    case Unit::phase:
      return "\u00b0";
    case Unit::meters:
      return " m";
    case Unit::bpm:
      return " bpm";
    case Unit::beats:
      return " beats";
    case Unit::sampleFrames:
      return " samples";
    case Unit::rate:
      return "x";
    case Unit::ratio:
      return ":1";
    default:
      return "";
  }
}

}  // namespace platform

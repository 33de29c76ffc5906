#pragma once

#include <juce_data_structures/juce_data_structures.h>

#include "Orvane/MidiLearn.h"

namespace juce_backend {

/// Keeps the MIDI bindings of a stand-alone plug-in among its settings: takes those that were
/// stored last, and stores every change at once. Both outlive it.
class StoredBindings {
 public:
  StoredBindings(orvane::MidiLearn& learn, juce::PropertiesFile& settings);
  ~StoredBindings();
  StoredBindings(const StoredBindings&) = delete;
  StoredBindings& operator=(const StoredBindings&) = delete;

 private:
  void load();
  void store();

  orvane::MidiLearn& learn_;
  juce::PropertiesFile& settings_;
};

}  // namespace juce_backend

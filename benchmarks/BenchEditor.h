#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Orvane/KestroAUViewController.h"
#include "Quillon/CommonAudioUnit.h"
#include "backends/juce/EditorComponent.h"
#include "benchmarks/Grid.h"

namespace bench {

/// A parameter for each knob; the first of them publish live values.
class BenchAudioUnit : public quillon::CommonAudioUnit {
 public:
  static constexpr int modulatedCount = 32;

  explicit BenchAudioUnit(int count);

  /// What the render thread would do: all live values at `value`, flagged as modulated or not.
  void modulate(float value, bool modulated);
};

/// An editor as a plug-in's author would write it: one page that shows every parameter.
class BenchController : public orvane::KestroAUViewController {
 public:
  /// `groupId` names where its user presets are; empty for an editor without any.
  BenchController(BenchAudioUnit& unit, const Grid& grid, std::string groupId)
      : grid_(grid), groupId_(std::move(groupId)) {
    setAudioUnit(&unit);
  }
  std::string groupBundleId() override { return groupId_; }
  std::shared_ptr<orvane::AUDesign> design() override;

 private:
  const Grid grid_;
  const std::string groupId_;
};

std::string benchKey(int index);

/// The controller in the component that shows it on the desktop.
class BenchEditor {
 public:
  BenchEditor(BenchAudioUnit& unit, const Grid& grid, const std::string& groupId = {});

  juce_backend::EditorComponent& component() { return component_; }
  BenchController& controller() { return static_cast<BenchController&>(component_.controller()); }
  kestroui::Container& knob(int index) { return *knobs_[static_cast<std::size_t>(index)]; }

 private:
  juce_backend::EditorComponent component_;
  std::vector<kestroui::Container*> knobs_;
};

}  // namespace bench

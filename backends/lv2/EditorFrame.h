#pragma once

#include "backends/juce/EditorComponent.h"
#include "backends/lv2/HostWindow.h"

namespace lv2_backend {

/// What is in the host's window: the editor, and behind it whoever gives the host the keys that the
/// editor does not use. Message thread only.
class EditorFrame : public juce::Component {
 public:
  /// Both outlive it.
  EditorFrame(juce_backend::EditorComponent& editor, HostWindow& host);
  ~EditorFrame() override;

  void resized() override;
  bool keyPressed(const juce::KeyPress& key) override;

 private:
  juce_backend::EditorComponent& editor_;
  HostWindow& host_;
};

}  // namespace lv2_backend

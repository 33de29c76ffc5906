#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace bench {

/// A window without a display: JUCE's own repaint road down to the picture that it would hand to
/// the X server. The component that it shows fills it.
class OffscreenWindow : public juce::Component {
 public:
  OffscreenWindow(int width, int height, double scale);
  ~OffscreenWindow() override;

  void show(juce::Component& content);
  /// Something has asked to be painted.
  bool isDirty() const;
  /// Paints what has asked.
  void paintNow();
  /// Requests to repaint since the window was made.
  int repaintRequests() const;
  const juce::Image& picture() const;

 private:
  class Peer;
  juce::ComponentPeer* createNewPeer(int styleFlags, void*) override;

  const double scale_;
  Peer* peer_ = nullptr;
};

}  // namespace bench

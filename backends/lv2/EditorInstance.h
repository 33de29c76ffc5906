#pragma once

#include <lv2/ui/ui.h>

#include <cstdint>

#include "Orvane/HostPresets.h"
#include "Orvane/PluginEntry.h"
#include "backends/juce/EditorComponent.h"
#include "backends/lv2/EditorFrame.h"
#include "backends/lv2/HostWindow.h"
#include "backends/lv2/MirrorAudioUnit.h"
#include "backends/lv2/PortMirror.h"

namespace lv2_backend {

/// One editor of a plug-in in the X11 window of an LV2 host. JUCE's messages are dispatched from
/// the host's idle calls, so that everything happens on the host's user-interface thread and ports
/// are written from where they may be; all editors of a process share the one loop.
class EditorInstance {
 public:
  struct Place {
    /// The host's window.
    unsigned long parent = 0;
    /// Null when the host does not have it.
    const LV2UI_Resize* resize = nullptr;
    /// Pixels that a point is to have.
    double scale = 1;
    /// Whether the host sends the sound MIDI, which can be learnt then.
    bool takesMidi = true;
  };

  /// Throws std::runtime_error when there is no display.
  EditorInstance(const orvane::PluginEntry& entry, const EditorHost& host, const Place& place);
  ~EditorInstance();
  EditorInstance(const EditorInstance&) = delete;
  EditorInstance& operator=(const EditorInstance&) = delete;

  /// The editor's own X11 window.
  LV2UI_Widget widget() const;
  void portEvent(std::uint32_t port, std::uint32_t size, std::uint32_t format, const void* data);
  void idle();
  /// The host's size for the editor, in pixels.
  void resize(int width, int height);

 private:
  double pixelsPerUnit() const;

  /// Keeps JUCE up, with this thread as its message thread.
  struct JuceSession {
    JuceSession();
    juce::ScopedJuceInitialiser_GUI initialiser;
  };

  // Before JUCE, which does not look whether there is a display.
  HostWindow hostWindow_;
  // First in, last out: nothing of JUCE may outlive it.
  JuceSession juce_;
  MirrorAudioUnit audioUnit_;
  PortMirror ports_;
  juce_backend::EditorComponent editor_;
  EditorFrame frame_;
  std::unique_ptr<orvane::HostPresets> presets_;
  /// JUCE has set the size of its window, and with it all that the window said of its size.
  bool minimumIsLost_ = true;
};

}  // namespace lv2_backend

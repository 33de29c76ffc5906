#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Orvane/KestroAUViewController.h"
#include "Orvane/MidiLearn.h"
#include "Orvane/PluginEntry.h"
#include "backends/headless/HeadlessApplication.h"
#include "backends/headless/HeadlessRunLoop.h"
#include "foundation/Bundle.h"
#include "platform/AudioUnit.h"
#include "toolkit/Window.h"

namespace headless {

/// What was shown since the last count.
struct FrameCount {
  /// Frames at which display links were called.
  std::uint64_t displayFrames = 0;
  /// Views that painted themselves anew.
  std::uint64_t repaints = 0;
  /// Square points that had to be composited again.
  double repaintedArea = 0;

  friend bool operator==(const FrameCount&, const FrameCount&) = default;
};

/// A host without a display that holds one editor: it has the editor's audio unit and window, and
/// its hands are functions. Each of them ends with everything that is due having run and been laid
/// out, unless a turn of the loop is open. The clock moves only through the run loop.
///
///     HeadlessHost host(loop, entry);
///     host.appear();
///     host.tap({200, 300});
class HeadlessHost : private platform::WindowHost, private HeadlessRunLoop::Screen {
 public:
  /// The editor at its preferred size, not yet on screen. `loop` outlives the host.
  HeadlessHost(HeadlessRunLoop& loop, const orvane::PluginEntry& entry);
  ~HeadlessHost() override;
  HeadlessHost(const HeadlessHost&) = delete;
  HeadlessHost& operator=(const HeadlessHost&) = delete;

  platform::AudioUnit& audioUnit() { return *audioUnit_; }
  orvane::KestroAUViewController& editor() { return *editor_; }
  /// The editor's host delegate, which keeps the MIDI bindings.
  orvane::MidiLearn& midiLearn() { return midiLearn_; }
  toolkit::Window& window() { return window_; }
  /// Holds the editor's view, and above it whatever covers the whole editor.
  toolkit::View& rootView() { return root_.view(); }
  HeadlessApplication* application() override { return &application_; }
  HeadlessRunLoop& loop() { return loop_; }

  // What a host does

  void appear();
  void disappear();
  void resize(const platform::Size& size);
  /// Sets a parameter on a thread of its own, as automation does; false for an unknown key.
  bool automate(std::string_view key, float value);
  /// A message from a MIDI device, on a thread of its own; false when nothing used it.
  bool receiveMidi(std::span<const std::uint8_t> message);

  // What a user does; places are in root coordinates.

  void tap(platform::Point place);
  void doubleTap(platform::Point place);
  /// A finger that moves by `distance` in ten moves.
  void drag(platform::Point place, platform::Point distance);
  /// One more finger, which stays where it is; false while it is down already.
  bool press(platform::Point place);
  /// Moves that finger on; false when it is not down.
  bool move(platform::Point distance);
  /// False when it was not down.
  bool lift();
  /// Notches, positive away from the user. False when nothing used it.
  bool turnWheel(platform::Point place, double notches);
  /// False when nothing used it, so that it went back to the host.
  bool pressKey(const platform::KeyEvent& event);
  /// One key press for each character of the UTF-8 text.
  void type(std::string_view text);

  /// Paints the whole window from what it shows now.
  void composite(platform::Canvas& canvas);
  /// What was shown since the last call.
  FrameCount takeFrames();

 private:
  void frameWanted() override {}
  /// As RecordingCanvas measures.
  double textWidth(std::string_view text, const platform::Font& font) override;
  double now() const override { return loop_.now(); }
  std::string clipboardText() override { return clipboard_; }
  void setClipboardText(const std::string& text) override { clipboard_ = text; }
  void refresh() override;
  void tapOnce(platform::Point place, int count);

  HeadlessRunLoop& loop_;
  foundation::MainBundle bundle_;
  HeadlessApplication application_;
  // The editor goes before its audio unit, and both before the window.
  toolkit::Window window_{*this};
  toolkit::ViewController root_;
  std::unique_ptr<platform::AudioUnit> audioUnit_;
  orvane::MidiLearn midiLearn_;
  std::unique_ptr<orvane::KestroAUViewController> editor_;
  std::string clipboard_;
  /// Where the finger is that was pressed and not lifted yet.
  std::optional<platform::Point> held_;
  bool appeared_ = false;
  double repaintedArea_ = 0;
  std::uint64_t countedFrames_ = 0;
  std::uint64_t countedRepaints_ = 0;
};

}  // namespace headless

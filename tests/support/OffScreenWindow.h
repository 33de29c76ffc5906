#pragma once

#include <chrono>
#include <functional>
#include <thread>

#include "backends/juce/JuceInput.h"

namespace juce {
// Not declared in any header; JUCE's own formats declare it in the same way.
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
}  // namespace juce

namespace support {

/// Runs JUCE's messages until the condition holds, at most for so many seconds. Whether it holds.
inline bool runUntil(const std::function<bool()>& holds, double seconds = 5) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    if (!juce::dispatchNextMessageOnSystemQueue(true))
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

inline void runFor(double seconds) {
  runUntil([] { return false; }, seconds);
}

/// A window on a desktop that does not exist: what is in it shows, is painted into a picture of
/// `scale` pixels a point where it asks for it, and gets mouse and keys along JUCE's own roads.
/// Nothing of it needs a display.
class OffScreenWindow : public juce::Component {
 public:
  OffScreenWindow(juce::Component& content, double scale = 1) : scale_(scale) {
    // Menus are placed on the display that they are for.
    auto& displays = const_cast<juce::Displays&>(juce::Desktop::getInstance().getDisplays());
    if (displays.displays.isEmpty()) {
      juce::Displays::Display display;
      display.isMain = true;
      display.totalArea = display.userArea = {0, 0, 2000, 1500};
      displays.displays.add(display);
    }
    setSize(content.getWidth(), content.getHeight());
    addAndMakeVisible(content);
    setVisible(true);
    addToDesktop(0);
    peer().handleFocusGain();
  }
  ~OffScreenWindow() override { removeFromDesktop(); }

  /// What a user sees; only what was asked to be painted is up to date.
  const juce::Image& screen() {
    peer().performAnyPendingRepaintsNow();
    return peer().screen;
  }
  /// Whether something waits to be painted.
  bool isDirty() { return !peer().dirty.isEmpty(); }

  /// The mouse is there with these buttons and keys; several calls in a row are a drag.
  void mouse(juce::Point<float> at, int modifiers = 0) {
    juce::ModifierKeys::currentModifiers = juce::ModifierKeys(modifiers);
    time_ += 20;
    peer().handleMouseEvent(juce::MouseInputSource::mouse, at, juce::ModifierKeys(modifiers), 0, 0,
                            time_);
  }
  /// Long enough that the next click is one of its own.
  void pause() { time_ += 2000; }
  void wheel(juce::Point<float> at, float notches) {
    juce::MouseWheelDetails details{};
    details.deltaY = notches * 50.0f / 256.0f;
    peer().handleMouseWheel(juce::MouseInputSource::mouse, at, time_ += 20, details);
  }
  /// True when somebody has used it.
  bool key(const juce::KeyPress& press) { return peer().handleKeyPress(press); }
  void minimise(bool minimised) { peer().setMinimised(minimised); }

  /// How often the wheel came to the window as nothing in it wanted it.
  int wheelsLeft = 0;
  void mouseWheelMove(const juce::MouseEvent&, const juce::MouseWheelDetails&) override {
    ++wheelsLeft;
  }

 private:
  class Peer : public juce::ComponentPeer {
   public:
    Peer(juce::Component& window, int flags, double scale)
        : ComponentPeer(window, flags), scale_(scale) {}

    void* getNativeHandle() const override { return nullptr; }
    void setVisible(bool) override {}
    void setTitle(const juce::String&) override {}
    void setBounds(const juce::Rectangle<int>&, bool) override { handleMovedOrResized(); }
    juce::Rectangle<int> getBounds() const override {
      return juce::Rectangle<int>(component.getWidth(), component.getHeight());
    }
    juce::Point<float> localToGlobal(juce::Point<float> place) override { return place; }
    juce::Point<float> globalToLocal(juce::Point<float> place) override { return place; }
    void setMinimised(bool minimised) override {
      isMinimised_ = minimised;
      handleMovedOrResized();
      component.visibilityChanged();
    }
    bool isMinimised() const override { return isMinimised_; }
    void setFullScreen(bool) override {}
    bool isFullScreen() const override { return false; }
    void setIcon(const juce::Image&) override {}
    bool contains(juce::Point<int> place, bool) const override {
      return getBounds().contains(place);
    }
    OptionalBorderSize getFrameSizeIfPresent() const override { return {}; }
    juce::BorderSize<int> getFrameSize() const override { return {}; }
    bool setAlwaysOnTop(bool) override { return true; }
    void toFront(bool) override {}
    void toBehind(ComponentPeer*) override {}
    bool isFocused() const override { return true; }
    void grabFocus() override {}
    void repaint(const juce::Rectangle<int>& area) override { dirty.add(area); }
    void performAnyPendingRepaintsNow() override;
    void setAlpha(float) override {}
    juce::StringArray getAvailableRenderingEngines() override { return {"Software"}; }
    void textInputRequired(juce::Point<int>, juce::TextInputTarget&) override {}
    double getPlatformScaleFactor() const noexcept override { return scale_; }

    juce::RectangleList<int> dirty;
    juce::Image screen;

   private:
    const double scale_;
    bool isMinimised_ = false;
  };

  Peer& peer() { return static_cast<Peer&>(*getPeer()); }
  juce::ComponentPeer* createNewPeer(int flags, void*) override {
    return new Peer(*this, flags, scale_);
  }

  const double scale_;
  juce::int64 time_ = 1000;
};

inline void OffScreenWindow::Peer::performAnyPendingRepaintsNow() {
  const juce::Rectangle<int> all = (getBounds().toDouble() * scale_).getSmallestIntegerContainer();
  if (screen.getBounds() != all) {
    screen = juce::Image(juce::Image::RGB, all.getWidth(), all.getHeight(), true,
                         juce::SoftwareImageType());
    dirty = getBounds();
  }
  juce::RectangleList<int> pixels;
  for (const juce::Rectangle<int>& area : dirty)
    pixels.add((area.toDouble() * scale_).getSmallestIntegerContainer().getIntersection(all));
  dirty.clear();
  if (pixels.isEmpty()) return;
  juce::LowLevelGraphicsSoftwareRenderer context(screen, {}, pixels);
  context.addTransform(juce::AffineTransform::scale(static_cast<float>(scale_)));
  handlePaint(context);
}

}  // namespace support

#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "toolkit/Window.h"

namespace support {

/// Writes what is painted as one line for each call; only what the tests look at is spelled out.
class LogCanvas : public platform::Canvas {
 public:
  std::vector<std::string> lines;

  void save() override { lines.push_back("save"); }
  void restore() override { lines.push_back("restore"); }
  void place(const platform::Placement& p) override { add("move", {p.origin.x, p.origin.y}); }
  void clip(const platform::Rect& r) override { addRect("clip", r); }
  void fillRect(const platform::Rect& r, const platform::Paint&) override { addRect("rect", r); }
  void fillRoundedRect(const platform::Rect& r, double radius,
                       const platform::Paint& paint) override {
    addRect(paint.stops.empty() ? "rounded" : "gradient", r, {radius});
  }
  void strokeRoundedRect(const platform::Rect& r, double radius, double width,
                         const platform::Paint&) override {
    addRect("border", r, {radius, width});
  }
  void fillEllipse(const platform::Rect& r, const platform::Paint&) override {
    addRect("ellipse", r);
  }
  void fillPath(const platform::Path& path, const platform::Paint&) override {
    addRect("path", path.bounds());
  }
  void strokePath(const platform::Path& path, const platform::StrokeStyle& style,
                  const platform::Paint&) override {
    addRect("stroke", path.bounds(), {style.width});
  }
  void drawText(std::string_view text, const platform::Font&, const platform::Rect&,
                platform::TextAlignment, platform::Color, double) override {
    lines.push_back("text " + std::string(text));
  }
  double textWidth(std::string_view text, const platform::Font&) override {
    return static_cast<double>(text.size());
  }

  /// All lines but saves and restores.
  std::vector<std::string> painted() const {
    std::vector<std::string> result;
    for (const std::string& line : lines)
      if (line != "save" && line != "restore") result.push_back(line);
    return result;
  }

 private:
  void add(const char* name, const std::vector<double>& values) {
    std::ostringstream line;
    line << name;
    for (double v : values) line << ' ' << v;
    lines.push_back(line.str());
  }
  void addRect(const char* name, const platform::Rect& r, std::vector<double> more = {}) {
    std::vector<double> values{r.x, r.y, r.width, r.height};
    values.insert(values.end(), more.begin(), more.end());
    add(name, values);
  }
};

/// A window of 400 x 300 points without a display.
///
///     support::WindowBench bench;
///     bench.root().addSubview(view);
///     bench.frame();
///     bench.tap({10, 10});
class WindowBench : public platform::WindowHost {
 public:
  WindowBench() {
    window.setSize({400, 300});
    window.setRootViewController(&controller);
  }

  void frameWanted() override { ++framesWanted; }
  platform::Application* application() override { return programme; }
  double textWidth(std::string_view text, const platform::Font& font) override {
    return 0.55 * font.pointSize * static_cast<double>(text.size());
  }
  double now() const override { return seconds; }
  std::string clipboardText() override { return clipboard; }
  void setClipboardText(const std::string& text) override { clipboard = text; }

  toolkit::View& root() { return controller.view(); }
  std::vector<platform::Rect> frame() { return window.prepareFrame(); }
  /// Paints whatever meets `area` and returns it, saves and restores left out.
  std::vector<std::string> painted(const platform::Rect& area = {0, 0, 400, 300}) {
    LogCanvas canvas;
    window.composite(canvas, area);
    return canvas.painted();
  }
  void press(platform::Point at, int id = 1) {
    window.touchBegan(id, toolkit::Touch::Kind::finger, at, 1);
  }
  void drag(platform::Point to, int id = 1) { window.touchMoved(id, to); }
  void lift(platform::Point at, int id = 1) { window.touchEnded(id, at); }
  void tap(platform::Point at) {
    press(at);
    lift(at);
  }
  bool key(platform::Key key, platform::Modifiers modifiers = platform::Modifiers::none,
           const std::string& text = "") {
    return window.keyPressed({key, modifiers, text});
  }

  int framesWanted = 0;
  /// The time stamp of touches.
  double seconds = 1;
  std::string clipboard;
  platform::Application* programme = nullptr;
  toolkit::ViewController controller;
  toolkit::Window window{*this};
};

/// Fills itself, writes what happens to it into a shared journal, and does what a test wants.
class ProbeView : public toolkit::View {
 public:
  ProbeView(std::string name, std::vector<std::string>& journal, const platform::Rect& frame)
      : View(frame), name_(std::move(name)), journal_(journal) {}

  std::function<void()> onDraw, onLayout, onTouchBegan, onTouchCancelled, onHover;
  bool takesKeyboard = false;
  bool usesEvents = false;

  bool canBecomeFirstResponder() const override { return takesKeyboard; }
  void layoutSubviews() override { note("layout", onLayout); }
  void draw(const platform::Rect&) override { note("draw", onDraw); }
  void paint(platform::Canvas& canvas) override {
    canvas.fillRect(bounds(), platform::Color::white());
    note("paint", {});
  }
  void touchBegan(const toolkit::Touch&) override { note("began", onTouchBegan); }
  void touchMoved(const toolkit::Touch&) override { note("moved", {}); }
  void touchEnded(const toolkit::Touch&) override { note("ended", {}); }
  void touchCancelled(const toolkit::Touch&) override { note("cancelled", onTouchCancelled); }
  void hoverChanged(bool hovered) override { note(hovered ? "entered" : "left", onHover); }
  void firstResponderChanged() override {
    note(isFirstResponder() ? "got keyboard" : "lost keyboard", {});
  }
  bool wheelTurned(const platform::WheelEvent&) override {
    note("wheel", {});
    return usesEvents;
  }
  bool keyPressed(const platform::KeyEvent&) override {
    note("key", {});
    return usesEvents;
  }

 private:
  void note(const char* what, const std::function<void()>& then) {
    journal_.push_back(name_ + " " + what);
    // A copy: what it does may destroy this view.
    if (const auto action = then) action();
  }

  std::string name_;
  std::vector<std::string>& journal_;
};

/// The entries of a journal that end in one of these words.
inline std::vector<std::string> only(const std::vector<std::string>& journal,
                                     const std::vector<std::string>& words) {
  std::vector<std::string> result;
  for (const std::string& entry : journal)
    for (const std::string& word : words)
      if (entry.size() > word.size() && entry.ends_with(" " + word)) result.push_back(entry);
  return result;
}

}  // namespace support

#include "backends/juce/JuceCanvas.h"
#include "backends/juce/Picture.h"
#include "benchmarks/EventLoop.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Rows.h"

namespace bench {
namespace {

void needAll(toolkit::View& view) {
  view.setNeedsDisplay();
  for (toolkit::View* subview : view.subviews()) needAll(*subview);
}

/// All that our editor can be asked for at once: every view is laid out and painted, all of it is
/// composited, and the result is copied to the screen. Its parts are in milliseconds.
class OurFullRepaint {
 public:
  explicit OurFullRepaint(OurSide& side)
      : side_(side),
        picture_(juce_backend::makePicture(static_cast<int>(width * scale),
                                           static_cast<int>(height * scale))) {}

  double operator()() {
    toolkit::Window& window = side_.editor->component().window();
    painting_.push_back(worked([&] {
      needAll(window.rootViewController()->view());
      window.prepareFrame();
    }));
    compositing_.push_back(worked([&] {
      juce_backend::JuceCanvas canvas(picture_, scale);
      window.composite(canvas, {0, 0, width, height});
    }));
    side_.window.repaint();
    copying_.push_back(worked([&] { side_.window.paintNow(); }));
    return painting_.back() + compositing_.back() + copying_.back();
  }

  void addParts(Report& report) const {
    report.add({.key = "fullRepaintLayout",
                .title = "  of this, layout and recording",
                .unit = "ms",
                .ours = median(painting_)});
    report.add({.key = "fullRepaintComposite",
                .title = "  of this, compositing",
                .unit = "ms",
                .ours = median(compositing_)});
    report.add({.key = "fullRepaintCopy",
                .title = "  of this, copying, which is all when uncovered",
                .unit = "ms",
                .ours = median(copying_)});
  }

 private:
  OurSide& side_;
  juce::Image picture_;
  std::vector<double> painting_, compositing_, copying_;
};

double stockFullRepaint(StockSide& side) {
  side.window.repaint();
  return worked([&] { side.window.paintNow(); });
}

/// Returns what our full repaint takes.
double addFullRepaint(Report& report, OurSide& ours, StockSide& stock) {
  OurFullRepaint fullRepaint(ours);
  const Medians ms = interleaved(
      25, [&] { return fullRepaint(); }, [&] { return stockFullRepaint(stock); });
  report.add({.key = "fullRepaint",
              .title = "full repaint, 200 knobs, 1024x768 at scale 2",
              .unit = "ms",
              .ours = ms.ours,
              .stock = ms.stock,
              .goal = 0.7});
  fullRepaint.addParts(report);

  StockSide plain(StockEditor::ValueBoxes::none);
  plain.open();
  const Medians again = interleaved(
      25, [&] { return fullRepaint(); }, [&] { return stockFullRepaint(plain); });
  report.add({.key = "fullRepaintWithoutBoxes",
              .title = "  against stock knobs without value boxes",
              .unit = "ms",
              .ours = again.ours,
              .stock = again.stock});
  return ms.ours;
}

/// One frame in which the first `count` knobs move, from the change to the painted screen.
double ourFrame(OurSide& side, int count, float value) {
  return worked([&] {
    for (int i = 0; i < count; ++i) side.editor->knob(i).setValue(value);
    runLoopUntil([&] { return side.window.isDirty(); });
    side.window.paintNow();
  });
}

double stockFrame(StockSide& side, int count, float value) {
  return worked([&] {
    for (int i = 0; i < count; ++i)
      side.editor->slider(i).setValue(value, juce::dontSendNotification);
    side.window.paintNow();
  });
}

/// The same while the sound moves them.
double modulatedFrame(OurSide& side, float value) {
  return worked([&] {
    side.unit.modulate(value, true);
    runLoopUntil([&] { return side.window.isDirty(); });
    side.window.paintNow();
  });
}

}  // namespace

void addPaintingRows(Report& report) {
  OurSide ours;
  StockSide stock;
  ours.open();
  stock.open();
  const double full = addFullRepaint(report, ours, stock);

  int step = 0;
  const Medians one = interleaved(
      60, [&] { return ourFrame(ours, 1, benchValue(++step)); },
      [&] { return stockFrame(stock, 1, benchValue(++step)); });
  report.add({.key = "oneKnob",
              .title = "one changed knob: layout, paint, composite, copy",
              .unit = "ms",
              .ours = one.ours,
              .stock = one.stock});
  report.add({.key = "oneKnobOfFullRepaint",
              .title = "  against our own full repaint",
              .unit = "ms",
              .ours = one.ours,
              .ratio = one.ours / full,
              .goal = 1.0 / 50});

  const Medians some = interleaved(
      60, [&] { return modulatedFrame(ours, benchValue(++step)); },
      [&] { return stockFrame(stock, BenchAudioUnit::modulatedCount, benchValue(++step)); });
  report.add({.key = "modulatedFrame",
              .title = "a frame of 32 modulated knobs at scale 2",
              .unit = "ms",
              .ours = some.ours,
              .stock = some.stock,
              .goal = 4,
              .goalFor = Row::Goal::figure});
}

}  // namespace bench

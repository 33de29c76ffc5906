#include <malloc.h>

#include "benchmarks/EventLoop.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Rows.h"

namespace bench {
namespace {

/// Milliseconds from nothing to the first painted frame.
template <class Side>
double opening(Side& side) {
  const double result = worked([&] { side.open(); });
  side.close();
  return result;
}

void addOpening(Report& report) {
  OurSide ours;
  for (const auto boxes : {StockEditor::ValueBoxes::shown, StockEditor::ValueBoxes::none}) {
    const bool shown = boxes == StockEditor::ValueBoxes::shown;
    StockSide stock(boxes);
    const Medians ms = interleaved(
        15, [&] { return opening(ours); }, [&] { return opening(stock); });
    report.add({.key = shown ? "open" : "openWithoutBoxes",
                .title = shown ? "open 200 knobs up to the first painted frame"
                               : "  against stock knobs without value boxes",
                .unit = "ms",
                .ours = ms.ours,
                .stock = ms.stock,
                .goal = shown ? std::optional(0.5) : std::nullopt});
  }
}

struct Rest {
  double repaints = 0;
  double milliseconds = 0;
};

/// What an editor does in a second in which nothing happens.
template <class Side>
Rest resting() {
  Side side;
  side.open();
  // Whatever a new editor has left to do.
  runLoopFor(500);
  side.window.paintNow();
  const int before = side.window.repaintRequests();
  Rest result;
  result.milliseconds = worked([] { runLoopFor(1000); });
  result.repaints = side.window.repaintRequests() - before;
  return result;
}

void addResting(Report& report) {
  const Rest ours = resting<OurSide>(), stock = resting<StockSide>();
  report.add({.key = "idleRepaints",
              .title = "repaints of an idle editor in a second",
              .ours = ours.repaints,
              .stock = stock.repaints,
              .goal = 0,
              .goalFor = Row::Goal::figure});
  report.add({.key = "idleWork",
              .title = "work of an idle editor in a second",
              .unit = "ms",
              .ours = ours.milliseconds,
              .stock = stock.milliseconds});
}

double allocatedMebibytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd) / (1024 * 1024);
}

template <class Side>
double memory() {
  Side side;
  // What stays with the process, such as typefaces, comes with the first.
  side.open();
  side.close();
  const double before = allocatedMebibytes();
  side.open();
  return allocatedMebibytes() - before;
}

void addMemory(Report& report) {
  // Our editor keeps what is on screen: four bytes a pixel.
  const double pixels = width * scale * height * scale * 4 / (1024 * 1024);
  report.add({.key = "memory",
              .title = "memory of 200 knobs beyond the pixels",
              .unit = "MiB",
              .ours = memory<OurSide>() - pixels,
              .stock = memory<StockSide>(),
              .goal = 8,
              .goalFor = Row::Goal::figure});
}

/// As many bare components, placed by nested flexible boxes: the least that a stock editor does.
class StockPage : public juce::Component {
 public:
  explicit StockPage(const Grid& grid) : grid_(grid) {
    for (int i = 0; i < grid.count(); ++i)
      addAndMakeVisible(components_.emplace_back(std::make_unique<juce::Component>()).get());
  }

  void resized() override {
    std::size_t next = 0;
    const float sectionWidth = static_cast<float>(getWidth()) / grid_.sectionColumns;
    const float sectionHeight = static_cast<float>(getHeight()) / grid_.sectionRows;
    for (int section = 0; section < grid_.sectionColumns * grid_.sectionRows; ++section) {
      const juce::Rectangle<float> area(section % grid_.sectionColumns * sectionWidth,
                                        section / grid_.sectionColumns * sectionHeight,
                                        sectionWidth, sectionHeight);
      for (int column = 0; column < grid_.columns; ++column) {
        juce::FlexBox box;
        box.flexDirection = juce::FlexBox::Direction::column;
        for (int row = 0; row < grid_.rows; ++row)
          box.items.add(juce::FlexItem(*components_[next++]).withFlex(1));
        const float columnWidth = sectionWidth / grid_.columns;
        box.performLayout(area.withWidth(columnWidth).translated(column * columnWidth, 0));
      }
    }
  }

 private:
  const Grid grid_;
  std::vector<std::unique_ptr<juce::Component>> components_;
};

void addLayout(Report& report) {
  OurSide ours(oneThousand);
  ours.open();
  orvane::PageView& page = *ours.editor->controller().settingsViewController().pageViews()[0];
  const platform::Rect frame = page.frame();
  StockPage stock(oneThousand);
  bool isSmaller = false;
  const Medians ms = interleaved(
      200,
      [&] {
        isSmaller = !isSmaller;
        const double less = isSmaller ? 40 : 0;
        ours.editor->component().window().prepareFrame();
        return worked([&] {
          page.setFrame({frame.x, frame.y, frame.width - less, frame.height - less});
          page.draw(page.bounds());
          for (const auto& [name, section] : page.sectionViews()) section->draw(section->bounds());
        });
      },
      [&] {
        const int less = isSmaller ? 40 : 0;
        return worked([&] { stock.setSize(width - less, height - less); });
      });
  report.add({.key = "layout",
              .title = "layout of 1,000 slots",
              .unit = "ms",
              .ours = ms.ours,
              .stock = ms.stock,
              .goal = 0.4,
              .goalFor = Row::Goal::figure});
}

}  // namespace

void addEditorRows(Report& report) {
  addOpening(report);
  addResting(report);
  addMemory(report);
  addLayout(report);
}

}  // namespace bench

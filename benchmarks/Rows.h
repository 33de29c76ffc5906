#pragma once

#include <memory>

#include "benchmarks/BenchEditor.h"
#include "benchmarks/OffscreenWindow.h"
#include "benchmarks/Report.h"
#include "benchmarks/StockEditor.h"

namespace bench {

inline constexpr int width = 1024, height = 768;
inline constexpr double scale = 2;

/// Our editor of a grid of knobs, and what it needs, in a window.
struct OurSide {
  explicit OurSide(const Grid& grid = twoHundred) : grid(grid), unit(grid.count()) {}

  /// Up to the first painted frame.
  void open() {
    editor = std::make_unique<BenchEditor>(unit, grid);
    window.show(editor->component());
    window.paintNow();
  }
  void close() {
    editor.reset();
    window.paintNow();
  }

  const Grid grid;
  BenchAudioUnit unit;
  OffscreenWindow window{width, height, scale};
  std::unique_ptr<BenchEditor> editor;
};

/// The same for the stock editor.
struct StockSide {
  explicit StockSide(StockEditor::ValueBoxes boxes = StockEditor::ValueBoxes::shown)
      : boxes(boxes), processor(twoHundred.count()) {}

  void open() {
    editor = std::make_unique<StockEditor>(processor, boxes);
    window.show(*editor);
    window.paintNow();
  }
  void close() {
    editor.reset();
    window.paintNow();
  }

  const StockEditor::ValueBoxes boxes;
  StockProcessor processor;
  OffscreenWindow window{width, height, scale};
  std::unique_ptr<StockEditor> editor;
};

/// Opening, resting, memory and layout of a whole editor.
void addEditorRows(Report& report);
/// What is painted when all, one or some of the knobs change.
void addPaintingRows(Report& report);
/// A frame of controls of many kinds that are all modulated.
void addMixedRows(Report& report);
/// The road of a value from another thread to its control.
void addValueRows(Report& report);
/// Listing and saving user presets.
void addPresetRows(Report& report);

}  // namespace bench

// What the recording canvas writes down, in the canvas's own coordinates.

#include "backends/headless/RecordingCanvas.h"

#include <gtest/gtest.h>

namespace headless {
namespace {

using platform::Color;
using platform::Paint;
using platform::Rect;
using Operation = RecordingCanvas::Operation;

TEST(RecordingCanvas, PlacesWhatIsPaintedInAPartOfAPart) {
  RecordingCanvas canvas;
  canvas.save();
  canvas.place({{90, 40}});
  canvas.place({{10, 10}, 2});
  canvas.fillRect({1, 2, 10, 20}, Color::white());
  canvas.restore();
  canvas.fillRect({1, 2, 3, 4}, Color::white());
  ASSERT_EQ(canvas.count(Operation::fillRect), 2u);
  EXPECT_EQ(canvas.calls()[3].area, (Rect{102, 54, 20, 40}));
  EXPECT_EQ(canvas.calls().back().area, (Rect{1, 2, 3, 4}));
  EXPECT_EQ(canvas.depth(), 0);
}

TEST(RecordingCanvas, CountsOnlyWhatLiesInsideTheClipAsPainted) {
  RecordingCanvas canvas;
  canvas.save();
  canvas.clip({0, 0, 10, 10});
  canvas.clip({5, 5, 10, 10});
  canvas.fillRect({0, 0, 100, 100}, Color::white());
  canvas.restore();
  EXPECT_EQ(canvas.paintedBounds(), (Rect{5, 5, 5, 5}));
}

TEST(RecordingCanvas, KeepsTextsAndTheFirstColourOfAGradient) {
  RecordingCanvas canvas;
  canvas.drawText("Gain", {}, {0, 0, 40, 10}, platform::TextAlignment::left, Color::white(), 0.7);
  canvas.fillRect({0, 0, 1, 1}, Paint({0, 0}, {0, 1}, {{0, Color::rgb(0xff0000)}, {1, {}}}));
  EXPECT_EQ(canvas.texts(), std::vector<std::string>{"Gain"});
  EXPECT_EQ(canvas.calls().back().color, Color::rgb(0xff0000));
  EXPECT_DOUBLE_EQ(canvas.textWidth("Gr\xC3\xB6\xC3\x9F"
                                    "e",
                                    {platform::FontWeight::regular, 10}),
                   25);
}

TEST(RecordingCanvas, SurvivesMoreRestoresThanSaves) {
  RecordingCanvas canvas;
  canvas.restore();
  canvas.fillRect({0, 0, 1, 1}, Color::white());
  EXPECT_EQ(canvas.depth(), -1);
  canvas.clear();
  EXPECT_TRUE(canvas.calls().empty());
  EXPECT_EQ(canvas.depth(), 0);
}

}  // namespace
}  // namespace headless

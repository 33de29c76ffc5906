#include "KestroUI/Icons.h"

#include <array>

namespace kestroui::Icons {

using platform::Canvas;
using platform::Color;
using platform::Path;

namespace {

// All pictures are drawn in a square of 24 points, with lines of 2.
constexpr platform::Size natural{24, 24};
constexpr platform::StrokeStyle line{2};

void drawPresets(Canvas& canvas, Color tint) {
  for (double y : {6.0, 12.0, 18.0}) {
    canvas.fillEllipse({3, y - 1.5, 3, 3}, tint);
    canvas.fillRoundedRect({9, y - 1, 12, 2}, 1, tint);
  }
}

void drawCross(Canvas& canvas, Color tint) {
  canvas.strokePath(fitted(cross(), {3, 3, 18, 18}), line, tint);
}

// A mark of the family: a rising wave in a ring.
void drawMark(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({5, 5, 14, 14}, 7, 1.2, tint.withAlpha(tint.alpha * 0.55f));
  Path wave;
  wave.moveTo({7.8, 13.75});
  wave.cubicTo({9.5, 13.75}, {9.5, 9.9}, {11.3, 9.9});
  wave.cubicTo({13.1, 9.9}, {12.7, 14.4}, {14.1, 14.4});
  wave.cubicTo({15.2, 14.4}, {15.2, 11.3}, {16.2, 10.3});
  canvas.strokePath(wave, {1.4}, tint);
}

void drawHelp(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({2, 2, 20, 20}, 10, 1.75, tint);
  Path hook;
  hook.moveTo({9, 9.5});
  hook.cubicTo({9, 5.6}, {15, 5.6}, {15, 9.5});
  hook.cubicTo({15, 11.8}, {12, 11.8}, {12, 14});
  canvas.strokePath(hook, line, tint);
  canvas.fillEllipse({10.75, 16, 2.5, 2.5}, tint);
}

void drawLike(Canvas& canvas, Color tint) {
  Path heart;
  heart.moveTo({12, 20.5});
  heart.cubicTo({-4, 10.5}, {6.5, 0}, {12, 7});
  heart.cubicTo({17.5, 0}, {28, 10.5}, {12, 20.5});
  heart.close();
  canvas.fillPath(heart, tint);
}

void drawContact(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({2, 5, 20, 14}, 2, 1.75, tint);
  Path flap;
  flap.moveTo({3, 7});
  flap.lineTo({12, 13.5});
  flap.lineTo({21, 7});
  canvas.strokePath(flap, {1.75}, tint);
}

void drawCloud(Canvas& canvas, Color tint) {
  Path cloud;
  cloud.moveTo({7, 18.5});
  cloud.cubicTo({0.5, 18.5}, {0.5, 10.5}, {6, 10.5});
  cloud.cubicTo({6.5, 3.5}, {16, 3.5}, {17, 10});
  cloud.cubicTo({23.5, 10}, {23.5, 18.5}, {17.5, 18.5});
  cloud.close();
  canvas.strokePath(cloud, line, tint);
}

void drawDice(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({3, 3, 18, 18}, 4, 1.75, tint);
  for (const auto& [x, y] : {std::array{8.0, 8.0}, std::array{16.0, 8.0}, std::array{12.0, 12.0},
                             std::array{8.0, 16.0}, std::array{16.0, 16.0}})
    canvas.fillEllipse({x - 1.6, y - 1.6, 3.2, 3.2}, tint);
}

void drawPlay(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({2, 4.5, 20, 15}, 4, 1.75, tint);
  Path triangle;
  triangle.moveTo({10, 8.5});
  triangle.lineTo({16, 12});
  triangle.lineTo({10, 15.5});
  triangle.close();
  canvas.fillPath(triangle, tint);
}

void drawCamera(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({3, 3, 18, 18}, 5, 1.75, tint);
  canvas.strokeRoundedRect({8, 8, 8, 8}, 4, 1.75, tint);
  canvas.fillEllipse({16.3, 5.8, 2.2, 2.2}, tint);
}

void drawPeople(Canvas& canvas, Color tint) {
  canvas.fillEllipse({5, 5, 6, 6}, tint);
  canvas.fillEllipse({14, 7, 5, 5}, tint);
  Path shoulders;
  shoulders.moveTo({2, 19.5});
  shoulders.cubicTo({2, 11}, {14, 11}, {14, 19.5});
  shoulders.close();
  shoulders.moveTo({15.5, 19.5});
  shoulders.cubicTo({15.5, 16.5}, {15, 15}, {14.5, 14});
  shoulders.cubicTo({19, 12.5}, {22, 15.5}, {22, 19.5});
  shoulders.close();
  canvas.fillPath(shoulders, tint);
}

void drawChat(Canvas& canvas, Color tint) {
  Path bubble;
  bubble.moveTo({12, 4});
  bubble.cubicTo({25, 4}, {25, 17.5}, {12, 17.5});
  bubble.cubicTo({11, 17.5}, {10, 17.4}, {9, 17.2});
  bubble.lineTo({5, 20.5});
  bubble.lineTo({5.3, 15.6});
  bubble.cubicTo({-1, 11.5}, {2.5, 4}, {12, 4});
  bubble.close();
  canvas.strokePath(bubble, {1.75}, tint);
}

struct NamedDrawing {
  std::string_view name;
  void (*draw)(Canvas&, Color);
};

constexpr std::array<NamedDrawing, 12> drawings = {{
    {"presets", drawPresets},
    {"smallCross", drawCross},
    {"kestro_centered", drawMark},
    {"help", drawHelp},
    {"like", drawLike},
    {"contact", drawContact},
    {"cloud", drawCloud},
    {"dice", drawDice},
    {"play", drawPlay},
    {"camera", drawCamera},
    {"people", drawPeople},
    {"chat", drawChat},
}};

}  // namespace

platform::Image image(std::string_view name) {
  constexpr std::string_view suffix = ".png";
  if (name.ends_with(suffix)) name.remove_suffix(suffix.size());
  for (const NamedDrawing& drawing : drawings)
    if (drawing.name == name) return {natural, drawing.draw};
  return {};
}

}  // namespace kestroui::Icons

#include "examples/Halden/HaldenLogo.h"

namespace halden {

using platform::Canvas;
using platform::Color;

platform::Image logo() {
  return {{100, 100}, [](Canvas& canvas, Color) {
            const platform::Rect tile{4, 4, 92, 92};
            canvas.fillRoundedRect(tile, 22,
                                   {tile.origin(),
                                    {tile.maxX(), tile.maxY()},
                                    {{0, Color::rgb(0x3b6fe8)}, {1, Color::rgb(0x27b39a)}}});
            canvas.strokeRoundedRect(tile.inset(0.75, 0.75), 21.25, 1.5,
                                     Color::white().withAlpha(0.16f));
            for (const double x : {25.0, 66.0})
              canvas.fillRoundedRect({x, 23, 9, 54}, 4.5, Color::white());
            platform::Path wave;
            wave.moveTo({29.5, 50});
            wave.cubicTo({37, 40}, {43, 40}, {50, 50});
            wave.cubicTo({57, 60}, {63, 60}, {70.5, 50});
            canvas.strokePath(wave, {8}, Color::white());
          }};
}

}  // namespace halden

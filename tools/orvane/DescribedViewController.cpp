#include "tools/orvane/DescribedViewController.h"

#include "KestroUI/Theme.h"
#include "foundation/UnicodeText.h"

namespace tool {

platform::Image DescribedViewController::appLogo() {
  const std::string& name = plugin_->name;
  return {{24, 24},
          [letter = name.substr(0, foundation::nextCharacter(name, 0))](platform::Canvas& canvas,
                                                                        platform::Color) {
            canvas.fillRoundedRect({1, 1, 22, 22}, 5, kestroui::Theme::surfaceRaised);
            canvas.drawText(letter, {platform::FontWeight::semiBold, 13, false}, {3, 3, 18, 18},
                            platform::TextAlignment::centre, kestroui::Theme::accent);
          }};
}

void DescribedViewController::viewDidLoad() {
  KestroAUViewController::viewDidLoad();
  menuBar().areDisplaysIconWaveforms = plugin_->areDisplaysIconWaveforms;
  if (!plugin_->displays.empty()) menuBar().setDisplays(plugin_->displays);
}

}  // namespace tool

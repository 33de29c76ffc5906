#pragma once

#include <string>

#include "KestroUI/Switches.h"

namespace orvane {

/// One value of a MultiSelectable: a text that is on or off. Its owner switches it.
class MultiSelectableButton : public kestroui::OnOffButton {
 public:
  explicit MultiSelectableButton(std::string text);

  /// Its share of the row's width.
  float weight = 1.0f;
  const std::string& text() const { return titles().front(); }

  platform::Accessibility accessibility() const override;
  void paint(platform::Canvas& canvas) override;
};

}  // namespace orvane

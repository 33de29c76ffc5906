#pragma once

#include "KestroUI/KestroButtons.h"

namespace orvane {

/// The tab of one page; selected while its page is shown.
class PageButton : public kestroui::SelectableButton {
 public:
  PageButton() = default;

  void draw(const platform::Rect& rect) override;
  platform::Accessibility accessibility() const override {
    return {platform::Accessibility::Role::tab, title(), isSelected() ? "Selected" : ""};
  }
};

}  // namespace orvane

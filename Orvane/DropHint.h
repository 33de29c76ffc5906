#pragma once

#include <string>

#include "toolkit/View.h"

namespace orvane {

/// Says over the whole editor what happens to the files that are dragged over it when they are let
/// go. User-interface thread.
class DropHint : public toolkit::View {
 public:
  DropHint();

  const std::string& text() const { return text_; }
  /// Covers `root` and its other views.
  void show(toolkit::View& root, std::string text);
  void hide() { removeFromSuperview(); }

  void paint(platform::Canvas& canvas) override;

 private:
  std::string text_;
};

}  // namespace orvane

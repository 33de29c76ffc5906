#pragma once

#include <string>

#include "platform/View.h"

namespace juce_backend {

/// Says over the whole editor what happens to the files that are dragged over it when they are let
/// go. User-interface thread.
class DropHint : public platform::View {
 public:
  DropHint();

  const std::string& text() const { return text_; }
  /// Covers `root` and its other views.
  void show(platform::View& root, std::string text);
  void hide() { removeFromSuperview(); }

  void paint(platform::Canvas& canvas) override;

 private:
  std::string text_;
};

}  // namespace juce_backend

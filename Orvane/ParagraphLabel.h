#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "toolkit/Label.h"

namespace orvane {

/// A text of as many lines as its width needs, broken between words, from the top of its frame on.
/// User-interface thread only.
class ParagraphLabel : public toolkit::Label {
 public:
  /// Height that the text takes at a width, both in points; only in a window.
  double heightFor(double width) const;

  void paint(platform::Canvas& canvas) override;

 private:
  double lineHeight() const { return font().pointSize * 1.45; }
  std::vector<std::string_view> lines(
      double width, const std::function<double(std::string_view)>& textWidth) const;
};

}  // namespace orvane

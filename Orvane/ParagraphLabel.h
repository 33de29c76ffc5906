#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/Label.h"

namespace orvane {

/// The text in lines no wider than `width`, broken at blanks; a word that is wider has a line of its
/// own. The last of `maximumLines` holds all the rest.
std::vector<std::string> wrappedLines(std::string_view text, double width,
                                      const std::function<double(std::string_view)>& textWidth,
                                      std::size_t maximumLines = std::string::npos);

/// A text of as many lines as its width needs, broken between words, from the top of its frame on.
/// User-interface thread only.
class ParagraphLabel : public toolkit::Label {
 public:
  /// Height that the text takes at a width, both in points; only in a window.
  double heightFor(double width) const;

  void paint(platform::Canvas& canvas) override;

 private:
  double lineHeight() const { return font().pointSize * 1.45; }
};

}  // namespace orvane

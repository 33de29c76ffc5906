#include "Orvane/ParagraphLabel.h"

#include <sstream>
#include <utility>

#include "toolkit/Window.h"

namespace orvane {

std::vector<std::string> wrappedLines(std::string_view text, double width,
                                      const std::function<double(std::string_view)>& textWidth,
                                      std::size_t maximumLines) {
  std::vector<std::string> lines;
  std::istringstream words{std::string(text)};
  std::string line;
  for (std::string word; words >> word;) {
    std::string longer = line;
    if (!longer.empty()) longer += ' ';
    longer += word;
    if (line.empty() || lines.size() + 1 == maximumLines || textWidth(longer) <= width)
      line = std::move(longer);
    else
      lines.push_back(std::exchange(line, std::move(word)));
  }
  if (!line.empty()) lines.push_back(std::move(line));
  return lines;
}

double ParagraphLabel::heightFor(double width) const {
  const toolkit::Window* shownIn = window();
  if (!shownIn) return 0;
  const auto broken = wrappedLines(
      text(), width, [&](std::string_view line) { return shownIn->textWidth(line, font()); });
  return static_cast<double>(broken.size()) * lineHeight();
}

void ParagraphLabel::paint(platform::Canvas& canvas) {
  const auto broken = wrappedLines(text(), bounds().width, [&](std::string_view line) {
    return canvas.textWidth(line, font());
  });
  double y = 0;
  for (const std::string& line : broken) {
    canvas.drawText(line, font(), {0, y, bounds().width, lineHeight()}, textAlignment(),
                    textColor());
    y += lineHeight();
  }
}

}  // namespace orvane

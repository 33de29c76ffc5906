#include "Orvane/ParagraphLabel.h"

#include <algorithm>

#include "toolkit/Window.h"

namespace orvane {

std::vector<std::string_view> ParagraphLabel::lines(
    double width, const std::function<double(std::string_view)>& textWidth) const {
  std::vector<std::string_view> result;
  std::string_view rest = text();
  const auto skipBlanks = [&] {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  };
  for (skipBlanks(); !rest.empty(); skipBlanks()) {
    std::size_t end = std::min(rest.find(' '), rest.size());
    while (end < rest.size()) {
      const std::size_t next = std::min(rest.find(' ', end + 1), rest.size());
      if (textWidth(rest.substr(0, next)) > width) break;
      end = next;
    }
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end);
    while (line.ends_with(' ')) line.remove_suffix(1);
    result.push_back(line);
  }
  return result;
}

double ParagraphLabel::heightFor(double width) const {
  const toolkit::Window* shownIn = window();
  if (!shownIn) return 0;
  const auto broken =
      lines(width, [&](std::string_view line) { return shownIn->textWidth(line, font()); });
  return static_cast<double>(broken.size()) * lineHeight();
}

void ParagraphLabel::paint(platform::Canvas& canvas) {
  const auto broken =
      lines(bounds().width, [&](std::string_view line) { return canvas.textWidth(line, font()); });
  double y = 0;
  for (const std::string_view line : broken) {
    canvas.drawText(line, font(), {0, y, bounds().width, lineHeight()}, textAlignment(),
                    textColor());
    y += lineHeight();
  }
}

}  // namespace orvane

#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tool {

/// Something that is wrong with a design.
struct Problem {
  /// "pages[0].sections[1].color"; empty for the design as a whole.
  std::string place;
  std::string text;

  /// One line that names the file as well.
  std::string line(const std::string& file) const {
    return file + ": " + (place.empty() ? "" : place + ": ") + text;
  }
};

using Problems = std::vector<Problem>;

}  // namespace tool

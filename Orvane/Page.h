#pragma once

#include <string>
#include <vector>

#include "Orvane/UISection.h"

namespace orvane {

/// One page of a design. Shared by whoever shows it.
class Page {
 public:
  /// Computes the totals; they are not computed again when `sections` changes.
  Page(std::vector<UISection> sections, std::string title);

  const std::string& title() const { return title_; }

  std::vector<UISection> sections;
  /// Weight of the widest row; 0 without sections.
  double totalWidth = 0;
  /// Sum of the weights of the rows, each as high as its least high section; 0 without sections.
  double totalHeight = 0;

 private:
  std::string title_;
};

}  // namespace orvane

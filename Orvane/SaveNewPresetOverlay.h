#pragma once

#include <string>
#include <vector>

#include "Orvane/MultiSelectable.h"
#include "Orvane/TextFieldOverlay.h"

namespace orvane {

/// Asks for the name and the categories of a preset. What is typed is not lost by a touch beside it.
/// User-interface thread only.
class SaveNewPresetOverlay : public TextFieldOverlay {
 public:
  SaveNewPresetOverlay();

  MultiSelectable& categorySelector() { return categorySelector_; }
  const std::vector<std::string>& categories() const { return categorySelector_.values(); }
  /// What the categories are chosen for, where no name is asked for; empty for a name.
  void setSubject(const std::string& subject);
  /// What the selector offers.
  void setCategories(std::vector<std::string> categories);

  void setHidden(bool hidden) override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  /// The panel, in the middle of what the overlay dims.
  toolkit::Layer back_;
  MultiSelectable categorySelector_;
};

}  // namespace orvane

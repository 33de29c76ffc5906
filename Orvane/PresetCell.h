#pragma once

#include <memory>

#include "KestroUI/KestroButtons.h"
#include "Orvane/Preset.h"
#include "toolkit/TableViewCell.h"

namespace orvane {

/// A preset in the list, with the star that makes it a favourite. User-interface thread only.
class PresetCell : public toolkit::TableViewCell {
 public:
  PresetCell();

  kestroui::StarButton& starButton() { return starButton_; }
  bool showStarButton() const { return showStarButton_; }
  void setShowStarButton(bool show);
  const std::shared_ptr<Preset>& preset() const { return preset_; }
  /// Shows its name and whether it is a favourite.
  void setPreset(std::shared_ptr<Preset> preset);

  /// The star: marks the preset or takes the mark away, and stores that.
  void handleValueChanged();

  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  kestroui::StarButton starButton_;
  bool showStarButton_ = true;
  std::shared_ptr<Preset> preset_;
};

}  // namespace orvane

#pragma once

#include <memory>

#include "KestroUI/KestroButtons.h"
#include "Orvane/Preset.h"
#include "toolkit/TableViewCell.h"

namespace orvane {

/// A preset in the list: its name, where there is room its bank and categories, and the star that
/// makes it a favourite. User-interface thread only.
class PresetCell : public toolkit::TableViewCell {
 public:
  PresetCell();

  kestroui::StarButton& starButton() { return starButton_; }
  bool showStarButton() const { return showStarButton_; }
  void setShowStarButton(bool show);
  const std::shared_ptr<Preset>& preset() const { return preset_; }
  /// Shows its name and whether it is a favourite.
  void setPreset(std::shared_ptr<Preset> preset);
  /// The sound is not what the preset has stored.
  bool isModified() const { return modified_; }
  void setModified(bool modified);

  /// The star: marks the preset or takes the mark away, and stores that.
  void handleValueChanged();

  toolkit::View* hitTest(platform::Point point) override;
  platform::Accessibility accessibility() const override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;
  void paint(platform::Canvas& canvas) override;

 private:
  kestroui::StarButton starButton_;
  bool showStarButton_ = true;
  bool modified_ = false;
  toolkit::Layer modifiedDot_;
  std::string categories_;
  /// Of bank and categories; empty where there is no room.
  platform::Rect columns_[2];
  std::shared_ptr<Preset> preset_;
};

}  // namespace orvane

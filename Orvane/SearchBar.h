#pragma once

#include "Orvane/SearchBarDelegate.h"
#include "platform/Path.h"
#include "platform/TextField.h"

namespace orvane {

/// A field to search by, behind a magnifier. Tells its delegate every change of the text.
/// User-interface thread only.
class SearchBar : public platform::View, public platform::TextFieldDelegate {
 public:
  SearchBar();

  platform::Weak<SearchBarDelegate> delegate;

  platform::TextField& textField() { return textField_; }

  void textFieldDidChange();
  /// Return leaves the field.
  bool textFieldShouldReturn(platform::TextField& field) override;

  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  platform::TextField textField_;
  platform::Path magnifierPath_;
  platform::ShapeLayer magnifierLayer_;
};

}  // namespace orvane

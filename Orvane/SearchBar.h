#pragma once

#include <string>

#include "platform/Path.h"
#include "toolkit/TextField.h"

namespace orvane {

/// Told what to search for. Held weakly. User-interface thread only.
class SearchBarDelegate {
 public:
  virtual ~SearchBarDelegate() = default;

  /// As typed; empty after the field was cleared.
  virtual void searchTextChanged(const std::string& text) = 0;
  /// Return was pressed, and the field has given the keyboard away.
  virtual void searchBarDidReturn() {}
};

/// A field to search by, behind a magnifier. Tells its delegate every change of the text.
/// User-interface thread only.
class SearchBar : public toolkit::View, public toolkit::TextFieldDelegate {
 public:
  SearchBar();

  platform::Weak<SearchBarDelegate> delegate;

  toolkit::TextField& textField() { return textField_; }

  void textFieldDidChange();
  /// Return leaves the field.
  bool textFieldShouldReturn(toolkit::TextField& field) override;

  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  toolkit::TextField textField_;
  platform::Path magnifierPath_;
  toolkit::ShapeLayer magnifierLayer_;
};

}  // namespace orvane

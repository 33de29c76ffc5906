#pragma once

#include <string>

#include "KestroUI/SimpleButton.h"
#include "Orvane/TextFieldOverlayDelegate.h"
#include "platform/Label.h"
#include "platform/TextField.h"

namespace orvane {

/// A panel over the editor that asks for one line of text: a title, a field and OK. Showing it
/// empties the field and gives it the keyboard. Return leaves the field for the OK button and
/// confirms nothing by itself; Escape hides the panel. Its owner shows it, gets the text and hides
/// it; then whoever had the keyboard before gets it back. User-interface thread only.
class TextFieldOverlay : public platform::View, public platform::TextFieldDelegate {
 public:
  TextFieldOverlay();

  platform::Weak<TextFieldOverlayDelegate> delegate;

  virtual std::string titleText() const { return "Please enter a preset name : "; }
  platform::Label& titleLabel() { return titleLabel_; }
  platform::TextField& textField() { return textField_; }
  kestroui::SimpleButton& okButton() { return okButton_; }

  /// OK: tells the delegate.
  void handleTouchDown(platform::Control& sender);
  bool textFieldShouldReturn(platform::TextField& field) override;

  void setHidden(bool hidden) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 protected:
  /// Field and button are where they are given, the title is above both; texts fit the field.
  void layoutEntry(const platform::Rect& field, const platform::Rect& button);

 private:
  platform::Label titleLabel_;
  platform::TextField textField_;
  kestroui::SimpleButton okButton_;
  platform::Weak<platform::View> keyboardBefore_;
};

}  // namespace orvane

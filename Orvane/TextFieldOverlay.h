#pragma once

#include <optional>
#include <string>

#include "KestroUI/KestroButtons.h"
#include "Orvane/OverlayStyle.h"
#include "toolkit/Label.h"
#include "toolkit/ModalView.h"
#include "toolkit/TextField.h"

namespace orvane {

class TextFieldOverlay;

/// Gets what a text-entry panel collected. Held weakly. User-interface thread only.
class TextFieldOverlayDelegate {
 public:
  virtual ~TextFieldOverlayDelegate() = default;

  /// OK was pressed. The panel stays until the delegate hides it; nothing has checked the text.
  virtual void textFieldOverlayDidConfirm(TextFieldOverlay& overlay,
                                          const std::optional<std::string>& text) = 0;
};

/// A panel over the editor that asks for one line of text: a title, a field and OK. Showing it
/// empties the field and gives it the keyboard. Return leaves the field for the OK button and
/// confirms nothing by itself; Escape hides the panel. Its owner shows it, gets the text and hides
/// it. User-interface thread only.
class TextFieldOverlay : public toolkit::ModalView, public toolkit::TextFieldDelegate {
 public:
  TextFieldOverlay();

  platform::Weak<TextFieldOverlayDelegate> delegate;

  virtual std::string titleText() const { return "Please enter a preset name : "; }
  toolkit::Label& titleLabel() { return titleLabel_; }
  toolkit::TextField& textField() { return textField_; }
  kestroui::SimpleButton& okButton() { return okButton_; }

  /// OK: tells the delegate.
  void handleTouchDown(toolkit::Control& sender);
  bool textFieldShouldReturn(toolkit::TextField& field) override;

  void setHidden(bool hidden) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 protected:
  /// Field and button are where they are given, the title is above both; texts fit the field.
  void layoutEntry(const platform::Rect& field, const platform::Rect& button);

 private:
  toolkit::Label titleLabel_;
  toolkit::TextField textField_;
  kestroui::SimpleButton okButton_;
};

}  // namespace orvane

#pragma once

#include <string>

#include "KestroUI/KestroButtons.h"
#include "Orvane/OverlayStyle.h"
#include "toolkit/Label.h"
#include "toolkit/ModalView.h"

namespace orvane {

class ConfirmOverlay;

/// Gets the answer to a question. Held weakly. User-interface thread only.
class ConfirmOverlayDelegate {
 public:
  virtual ~ConfirmOverlayDelegate() = default;

  /// True for YES. The panel stays until the delegate hides it.
  virtual void confirmOverlayDidAnswer(ConfirmOverlay& overlay, bool yes) = 0;
};

/// A panel that asks a question with NO and YES. Escape answers NO. User-interface thread only.
class ConfirmOverlay : public toolkit::ModalView {
 public:
  ConfirmOverlay();

  platform::Weak<ConfirmOverlayDelegate> delegate;

  const std::string& text() const { return textLabel_.text(); }
  /// Another question than whether to delete a preset.
  void setText(std::string text) { textLabel_.setText(std::move(text)); }
  toolkit::Label& textLabel() { return textLabel_; }
  /// What the question is about, above it.
  const std::string& subject() const { return subjectLabel_.text(); }
  void setSubject(std::string subject) { subjectLabel_.setText(std::move(subject)); }
  kestroui::SimpleButton& cancelButton() { return cancelButton_; }
  kestroui::SimpleButton& okButton() { return okButton_; }

  /// Either button: tells the delegate which.
  void handleTouchDown(toolkit::Control& sender);

  void setHidden(bool hidden) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  /// The panel, in the middle of what the overlay dims.
  toolkit::Layer back_;
  toolkit::Label subjectLabel_;
  toolkit::Label textLabel_;
  kestroui::SimpleButton cancelButton_{"NO"};
  kestroui::SimpleButton okButton_{"YES"};
};

}  // namespace orvane

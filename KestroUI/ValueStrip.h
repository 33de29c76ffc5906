#pragma once

#include <string>

#include "KestroUI/DragControl.h"

namespace kestroui {

/// A value as a horizontal bar with its name on the left and its text on the right.
class ValueStrip : public DragControl {
 public:
  ValueStrip() = default;

  const std::string& name() const { return name_; }
  void setName(const std::string& name);
  const std::string& text() const { return text_; }
  void setText(const std::string& text);

  void paint(platform::Canvas& canvas) override;

 protected:
  Axis dragAxis() const override { return Axis::horizontal; }
  double dragLength() const override;

 private:
  std::string name_;
  std::string text_;
};

}  // namespace kestroui

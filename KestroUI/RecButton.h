#pragma once

#include "KestroUI/OnOffButton.h"

namespace kestroui {

/// A button that records: stopped, armed (it waits for its sound or its bar) or running. A value of
/// two states is stopped or running; one of three is armed by a touch, and it is the processor that
/// lets it run.
class RecButton : public OnOffButton {
 public:
  enum class State { stopped, armed, running };

  RecButton();

  State state() const;
  /// Of a value of two states: switched on, but not running yet.
  void setWaiting(bool waiting);

  void paint(platform::Canvas& canvas) override;

 protected:
  float switchedValue() const override;

 private:
  bool waiting_ = false;
};

}  // namespace kestroui

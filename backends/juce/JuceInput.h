#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "platform/Responder.h"

namespace juce_backend {

// JUCE's input in the terms of the platform.

platform::Modifiers toModifiers(const juce::ModifierKeys& modifiers);
platform::KeyEvent toKeyEvent(const juce::KeyPress& key);
/// `location` in the window's coordinates.
platform::WheelEvent toWheelEvent(platform::Point location, const juce::MouseWheelDetails& wheel,
                                  const juce::ModifierKeys& modifiers);
platform::Point toPoint(juce::Point<float> point);

}  // namespace juce_backend

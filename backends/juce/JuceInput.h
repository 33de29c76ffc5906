#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <string_view>

#include "platform/Color.h"
#include "platform/Responder.h"

namespace juce_backend {

// JUCE's input in the terms of the platform, and the platform's colours and texts in those of JUCE.

/// Distinct among all that may be down at once: JUCE counts fingers, pens and mice each from 0.
int toTouchId(juce::MouseInputSource::InputSourceType type, int index);
platform::Modifiers toModifiers(const juce::ModifierKeys& modifiers);
platform::KeyEvent toKeyEvent(const juce::KeyPress& key);
/// `location` in the window's coordinates.
platform::WheelEvent toWheelEvent(platform::Point location, const juce::MouseWheelDetails& wheel,
                                  const juce::ModifierKeys& modifiers);
platform::Point toPoint(juce::Point<float> point);
juce::Colour toColour(platform::Color color);
juce::String toText(std::string_view utf8);

}  // namespace juce_backend

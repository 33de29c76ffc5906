#pragma once

#include <juce_graphics/juce_graphics.h>

namespace juce_backend {

/// An opaque picture of 32 bits a pixel, 0xffrrggbb, black at first. It has the layout of JUCE's
/// windows on the desktop, so that copying it there is a move of memory.
juce::Image makePicture(int width, int height);

}  // namespace juce_backend

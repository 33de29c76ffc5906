#pragma once

#include "platform/Fatal.h"

namespace bench {

/// JUCE's message loop, turned by hand on the message thread.

/// Sleeps until something arrives and handles it.
void turnLoop();
/// Turns for that long.
void runLoopFor(int milliseconds);

/// Turns until `reached` answers true.
template <class Predicate>
void runLoopUntil(Predicate reached) {
  // An open editor has timers, so each turn ends; what has not come after so many never will.
  for (int turns = 0; !reached(); ++turns) {
    if (turns > 10000) platform::fatal("A benchmark waits for what does not come");
    turnLoop();
  }
}

}  // namespace bench

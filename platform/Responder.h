#pragma once

#include <cstdint>
#include <string>

#include "platform/Geometry.h"
#include "platform/Weak.h"

namespace platform {

class Presentation;

/// Bits of the modifier keys held during an event.
enum class Modifiers : unsigned { none = 0, shift = 1, control = 2, alt = 4, command = 8 };
constexpr Modifiers operator|(Modifiers a, Modifiers b) {
  return static_cast<Modifiers>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}
constexpr bool has(Modifiers set, Modifiers bit) {
  return (static_cast<unsigned>(set) & static_cast<unsigned>(bit)) != 0;
}

/// A turn of the wheel or a two-finger scroll at a place.
struct WheelEvent {
  /// In the window's coordinates.
  Point location;
  /// Notches of a wheel, positive away from the user (up) and to the right; fractions from smooth
  /// devices.
  double deltaX = 0;
  double deltaY = 0;
  Modifiers modifiers = Modifiers::none;
};

enum class Key {
  character,
  returnKey,
  escape,
  tab,
  space,
  backspace,
  deleteForward,
  left,
  right,
  up,
  down,
  pageUp,
  pageDown,
  home,
  end,
};

/// One press of a key (repeats included).
struct KeyEvent {
  Key key = Key::character;
  Modifiers modifiers = Modifiers::none;
  /// UTF-8 text that the press types; empty for keys that type none.
  std::string text;
};

/// What can answer an event: views, view controllers, windows and the application form a chain
/// from the view that was hit outwards. User-interface thread only.
class Responder : public WeakTarget {
 public:
  virtual ~Responder() = default;

  /// The next object of the chain, or null at its end.
  virtual Responder* nextResponder() const { return nullptr; }

  /// True when the event was used; else the next responder is asked. An unused key goes back to
  /// the host.
  virtual bool wheelTurned(const WheelEvent&) { return false; }
  virtual bool keyPressed(const KeyEvent&) { return false; }
};

/// The end of every responder chain: the program around the editor.
class Application : public Responder {
 public:
  /// Opens a link outside the editor; false when that is not possible.
  virtual bool open(const std::string& url) = 0;
  /// Whether there is a store that can be asked to let its user review the program.
  virtual bool canRequestReview() const { return false; }
  virtual void requestReview() {}
  /// Shows what needs more than the editor; null where nothing can.
  virtual Presentation* presentation() { return nullptr; }
};

}  // namespace platform

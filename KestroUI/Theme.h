#pragma once

#include "platform/Color.h"
#include "platform/Font.h"

namespace toolkit {
class View;
}  // namespace toolkit

namespace kestroui {

/// Colours, fonts and measures that the whole family of plug-ins shares. Constant.
namespace Theme {

/// The global line width in points: gaps between sections and thin rules.
inline constexpr double lineWidth = 1.0;
/// Radius of panels and buttons in points.
inline constexpr double cornerRadius = 2.0;

inline constexpr platform::Color background = platform::Color::rgb(0x14161a);
inline constexpr platform::Color panel = platform::Color::rgb(0x1b1e24);
/// Bodies of knobs, tracks of sliders, faces of buttons.
inline constexpr platform::Color surface = platform::Color::rgb(0x262a32);
inline constexpr platform::Color surfaceRaised = platform::Color::rgb(0x323843);
inline constexpr platform::Color line = platform::Color::rgb(0x3a414d);
inline constexpr platform::Color lightGrey = platform::Color::rgb(0xc3c9d3);
/// Icons and marks.
inline constexpr platform::Color front = platform::Color::rgb(0xe8ebf0);
inline constexpr platform::Color text = platform::Color::rgb(0xe8ebf0);
inline constexpr platform::Color textDim = platform::Color::rgb(0x98a1ae);
/// What is switched off, and controls without a section's accent.
inline constexpr platform::Color grey = platform::Color::rgb(0x9aa4b2);
/// Bars and headers of the menu and the preset browser.
inline constexpr platform::Color menu = platform::Color::rgb(0x21252c);
inline constexpr platform::Color white = platform::Color::white();
/// The accent where no section gives one.
inline constexpr platform::Color accent = platform::Color::rgb(0x4ea1ff);

/// A text's colour on a face of colour `face`.
constexpr platform::Color textOn(platform::Color face) {
  const float luminance = 0.299f * face.red + 0.587f * face.green + 0.114f * face.blue;
  return luminance > 0.5f ? background : text;
}
/// `color` as an inactive control shows it.
constexpr platform::Color muted(platform::Color color) { return color.mixed(line, 0.72f); }

/// A switch that mutes while it is on.
inline constexpr platform::Color mute = platform::Color::rgb(0xe0a63c);
/// MIDI learn: what waits and what is bound.
inline constexpr platform::Color learn = platform::Color::rgb(0xb59cff);
/// A switch that records while it is on.
inline constexpr platform::Color record = platform::Color::rgb(0xe5484d);

inline constexpr platform::Font titleFont{platform::FontWeight::semiBold, 15, false};
inline constexpr platform::Font smallTitleFont{platform::FontWeight::medium, 12, false};
inline constexpr platform::Font pageFont{platform::FontWeight::extraLight, 17, false};
/// Rows of lists, and what is typed.
inline constexpr platform::Font cellFont{platform::FontWeight::extraLight, 15, false};
inline constexpr platform::Font regularFont{platform::FontWeight::regular, 13, false};
inline constexpr platform::Font labelFont{platform::FontWeight::regular, 11, false};
inline constexpr platform::Font valueFont{platform::FontWeight::medium, 11, true};

}  // namespace Theme

/// How much larger texts are in the tree of `view` than on an editor of ordinary size: 1 up to
/// there, and on a large screen less than the editor itself is larger.
double textScaleIn(const toolkit::View& view);

}  // namespace kestroui

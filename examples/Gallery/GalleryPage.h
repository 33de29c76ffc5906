#pragma once

#include <memory>
#include <string>
#include <vector>

#include "KestroUI/ParamKey.h"
#include "Orvane/AUDesign.h"
#include "Quillon/ParameterDescription.h"

namespace gallery {

/// A row of steps whose first parameter's live value is the step that plays.
struct Playhead {
  std::string key;
  int steps = 0;
};

/// A parameter whose display shows sound, and how many channels of it.
struct Sound {
  std::string key;
  int channels = 1;
};

/// One page of the gallery: its parameters, how their controls are built, and where they stand.
/// Each page has a source of its own. Addresses follow from the order of the parameters.
struct GalleryPage {
  std::vector<quillon::ParameterDescription> parameters{};
  std::vector<std::shared_ptr<kestroui::ParamKey>> keys{};
  std::shared_ptr<orvane::Page> page{};
  std::vector<Playhead> playheads{};
  std::vector<Sound> sounds{};
  /// Keys of the parameters whose displays show the gallery's recording.
  std::vector<std::string> recordings{};
};

GalleryPage simplePage();
GalleryPage shapesPage();
GalleryPage sequencesPage();
GalleryPage dynamicsPage();
GalleryPage displaysPage();

/// All of them, in their order.
std::vector<GalleryPage> galleryPages();

// What the pages are written with

/// One control that fills its column.
orvane::UIColumn single(std::string key, double weight = 1);
/// Several controls below each other.
orvane::UIColumn stacked(const std::vector<std::string>& keys, double weight = 1);
std::shared_ptr<orvane::Section> section(std::string name, platform::Color color,
                                         std::vector<orvane::UIColumn> columns);
std::shared_ptr<kestroui::ParamKey> key(std::string name, std::string title,
                                        kestroui::ControlType type = kestroui::ControlType::knob,
                                        std::vector<std::string> attached = {});
/// A share from 0 to 1 whose live value is published.
quillon::ParameterDescription share(std::string key, std::string title, float value);

namespace Colors {
inline constexpr platform::Color sand = platform::Color::rgb(0xe8b66b);
inline constexpr platform::Color coral = platform::Color::rgb(0xe78873);
inline constexpr platform::Color moss = platform::Color::rgb(0x9cc27a);
inline constexpr platform::Color sky = platform::Color::rgb(0x74b3e8);
inline constexpr platform::Color violet = platform::Color::rgb(0xb394ec);
inline constexpr platform::Color rose = platform::Color::rgb(0xe58bb2);
inline constexpr platform::Color teal = platform::Color::rgb(0x4fc1b6);
}  // namespace Colors

}  // namespace gallery

#include "examples/Gallery/GalleryPage.h"

#include <utility>

namespace gallery {

using orvane::UIColumn;

std::vector<GalleryPage> galleryPages() {
  return {simplePage(), shapesPage(), sequencesPage(), dynamicsPage(), displaysPage()};
}

UIColumn single(std::string key, double weight) {
  return {{{std::move(key), {}, 1, 0, 1}}, weight};
}

UIColumn stacked(const std::vector<std::string>& keys, double weight) {
  UIColumn column{{}, weight};
  for (const std::string& key : keys) column.params.push_back({key, {}, 1, 0, 1});
  return column;
}

std::shared_ptr<orvane::Section> section(std::string name, platform::Color color,
                                         std::vector<UIColumn> columns) {
  return std::make_shared<orvane::Section>(std::move(columns), std::move(name), color, std::nullopt,
                                           std::nullopt, false, true);
}

std::shared_ptr<kestroui::ParamKey> key(std::string name, std::string title,
                                        kestroui::ControlType type,
                                        std::vector<std::string> attached) {
  kestroui::ParameterUISettings settings;
  settings.displayName = std::move(title);
  settings.controlType = type;
  settings.attachedParameters = std::move(attached);
  return std::make_shared<kestroui::ParamKey>(std::move(name), std::move(settings));
}

quillon::ParameterDescription share(std::string key, std::string title, float value) {
  return {.key = std::move(key),
          .displayName = std::move(title),
          .maxValue = 100,
          .defaultValue = 100 * value,
          .unit = platform::AudioUnitParameterUnit::percent,
          .publishesLive = true};
}

}  // namespace gallery

#pragma once

#include "KestroUI/OnOffContainer.h"

namespace kestroui {

/// A switch that records while it is on: red, whatever the colour of its section.
class RecContainer : public OnOffContainer {
 public:
  RecContainer();

  void setControlColor(platform::Color) override {}
  void setColors(const std::vector<platform::Color>&) override {}
};

}  // namespace kestroui

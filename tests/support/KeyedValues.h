#pragma once

#include <optional>
#include <string>

#include "KestroUI/Container.h"

// What a container has for one of its keys, named as tests name it. A key that is none of its own
// throws.

namespace kestroui {

inline float valueOf(const Container& container, const std::string& key) {
  return container.value(container.indexOf(key).value());
}

inline std::optional<platform::Point> handleOf(const Container& container, const std::string& key) {
  return container.handlePlace(container.indexOf(key).value());
}

inline void showValue(Container& container, const std::string& key, float value,
                      const std::string& text = {}) {
  container.showValue(container.indexOf(key).value(), value, text);
}

}  // namespace kestroui

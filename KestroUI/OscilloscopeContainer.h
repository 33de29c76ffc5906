#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A display of sound; its parameter is raw.
class OscilloscopeContainer : public ValueStripContainer {
 public:
  /// The own parameter's value is raw.
  ValueForm valueForm(const std::string& key) const override {
    return isOwnKey(key) ? ValueForm::raw : ValueForm::position;
  }
};

}  // namespace kestroui

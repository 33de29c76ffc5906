#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A display of several sounds; its parameter is raw.
class MultiOscilloscopeContainer : public ValueStripContainer {
 public:
  /// The own parameter's value is raw.
  ValueForm valueForm(const std::string& key) const override {
    return isOwnKey(key) ? ValueForm::raw : ValueForm::position;
  }
};

}  // namespace kestroui

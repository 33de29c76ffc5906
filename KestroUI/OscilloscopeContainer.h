#pragma once

#include <vector>

#include "KestroUI/DisplayContainer.h"
#include "KestroUI/OscilloscopeView.h"

namespace kestroui {

/// One sound as it is now. Its own parameter, which is raw, is the time that is shown.
class OscilloscopeContainer : public DisplayContainer {
 public:
  OscilloscopeContainer() { setDisplay(view_); }

  /// The sounds that it may show, of which it shows the first. They must live as long as
  /// updateModulation is called.
  virtual void setBuffers(std::vector<const platform::LiveBuffer*> buffers);
  std::size_t bufferCount() const { return view_.bufferCount(); }

  ValueForm valueForm(const std::string& key) const override {
    return isOwnKey(key) ? ValueForm::raw : ValueForm::position;
  }
  bool hasModulation() const override {
    return bufferCount() > 0 || DisplayContainer::hasModulation();
  }
  void updateModulation() override;

 protected:
  OscilloscopeView& view() { return view_; }

 private:
  OscilloscopeView view_;
};

}  // namespace kestroui

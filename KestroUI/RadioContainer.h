#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/RadioButtons.h"

namespace kestroui {

/// A group of buttons of which one is on, with its title. The value is raw.
class RadioContainer : public Container {
 public:
  /// `isWaveform` draws icons of waveforms instead of texts.
  explicit RadioContainer(bool isWaveform = false);

  RadioButtons& buttons() { return buttons_; }

  ValueForm valueForm(const std::string& key) const override;
  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;

 private:
  RadioButtons buttons_;
};

}  // namespace kestroui

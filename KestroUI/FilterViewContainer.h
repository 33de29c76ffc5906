#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/FilterView.h"

namespace kestroui {

/// A filter view with its title. The first key is the frequency, whose position is its place in
/// pitch between 20 Hz and 20 kHz; the second is the resonance, whose value is raw.
class FilterViewContainer : public Container {
 public:
  FilterViewContainer();

  FilterView& filterView() { return filterView_; }
  const FilterView& filterView() const { return filterView_; }

  ValueForm valueForm(const std::string& key) const override;
  using Container::value;
  float value(const std::string& key) const override;
  void showValue(const std::string& key, float value, const std::string& text) override;
  void setControlColor(platform::Color color) override;
  void setColors(const std::vector<platform::Color>& colors) override;
  void setInactive(bool inactive) override;
  void draw(const platform::Rect& rect) override;

 private:
  /// Whether `key` is the second key.
  bool isResonance(const std::string& key) const;

  FilterView filterView_;
};

}  // namespace kestroui

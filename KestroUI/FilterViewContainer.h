#pragma once

#include "KestroUI/FilterView.h"
#include "KestroUI/ShapeContainer.h"

namespace kestroui {

/// A filter view with its title. The first key is the frequency, whose position is its place in
/// pitch between 20 Hz and 20 kHz; the second is the resonance, whose value is raw.
class FilterViewContainer : public ShapeContainer {
 public:
  FilterViewContainer() { setShape(filterView_); }

  FilterView& filterView() { return filterView_; }
  const FilterView& filterView() const { return filterView_; }

  ValueForm valueForm(const std::string& key) const override {
    return indexOf(key).value_or(0) == 0 ? ValueForm::pitch : ValueForm::raw;
  }

 private:
  FilterView filterView_;
};

}  // namespace kestroui

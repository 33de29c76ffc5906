#pragma once

#include "KestroUI/DoubleFilterView.h"
#include "KestroUI/ShapeContainer.h"

namespace kestroui {

/// A low-pass and a high-pass filter in one view. Keys: the low-pass's frequency and resonance, the
/// high-pass's frequency and resonance, then if any the low-pass's and the high-pass's gain.
class DoubleFilterViewContainer : public ShapeContainer {
 public:
  DoubleFilterViewContainer() { setShape(filterView_); }

  DoubleFilterView& filterView() { return filterView_; }
  const DoubleFilterView& filterView() const { return filterView_; }

  ValueForm valueForm(const std::string& key) const override {
    const std::size_t index = indexOf(key).value_or(0);
    return index == DoubleFilterView::lowPassFrequency || index == DoubleFilterView::hiPassFrequency
               ? ValueForm::pitch
               : ValueForm::raw;
  }

 private:
  DoubleFilterView filterView_;
};

}  // namespace kestroui

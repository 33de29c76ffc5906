#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "KestroUI/DisplayContainer.h"
#include "KestroUI/GranulizerView.h"

namespace kestroui {

/// Grains of a recording: their position, density, length and spray, by what the keys say or in this
/// order, and their pitch.
class GranulizerViewContainer : public DisplayContainer {
 public:
  using DataSource = std::function<std::shared_ptr<const platform::SampleData>()>;

  GranulizerViewContainer() { setDisplay(view_); }

  /// Asked now and at each display frame for the recording that is to be shown; may be empty.
  void setDataSource(DataSource source) {
    source_ = std::move(source);
    view_.setData(source_ ? source_() : nullptr);
  }
  bool hasModulation() const override { return source_ || DisplayContainer::hasModulation(); }
  void updateModulation() override {
    DisplayContainer::updateModulation();
    if (source_) view_.setData(source_());
  }

 private:
  GranulizerView view_;
  DataSource source_;
};

}  // namespace kestroui

#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "KestroUI/DisplayContainer.h"
#include "KestroUI/SampleView.h"

namespace kestroui {

/// A recording with handles for its start and end, and by what their keys say those of its loop and
/// the playing position.
class SampleViewContainer : public DisplayContainer {
 public:
  using DataSource = std::function<std::shared_ptr<const platform::SampleData>()>;

  SampleViewContainer() { setDisplay(view_); }

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
  SampleView view_;
  DataSource source_;
};

}  // namespace kestroui

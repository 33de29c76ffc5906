#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/Container.h"
#include "KestroUI/ShapeControl.h"
#include "platform/LiveBuffer.h"

namespace kestroui {

/// Base of the kinds that show their parameters as one shape: the value of each key is the value of
/// its index in the ShapeControl that the kind owns and gives to `setShape`.
class ShapeContainer : public Container {
 public:
  const ShapeControl* shape() const { return shape_; }

  void setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) override;
  using Container::value;
  float value(std::size_t index) const override;
  std::optional<platform::Point> handlePlace(std::size_t index) const override;
  void showValue(std::size_t index, float value, const std::string& text) override;
  /// Sets the range of a raw value, and for a position where its fill starts.
  void setKeyRange(std::size_t index, float minimum, float maximum) override;
  void setKeyStringValues(std::size_t index, const std::vector<std::string>& values) override;
  /// All of its values are moved by the user.
  bool hasBadge(std::size_t index) const override {
    return mappable() && index < paramKeys().size();
  }
  void setInverted(bool inverted) override;
  void setLinks(std::vector<bool> links) override;
  void updateModulation() override;
  void draw(const platform::Rect& rect) override;

 protected:
  /// Called once by the kind's constructor.
  void setShape(ShapeControl& shape);
  /// Whether a key's value is shown reversed: the own one by the container's settings, the attached
  /// ones by their own.
  virtual bool isReversed(std::size_t index) const;
  bool isInverted() const { return inverted_; }
  std::string movingText() const override;
  std::vector<std::size_t> movedIn(toolkit::Control& sender) override;
  void onEditingDidBegin() override;
  void onEditingDidEnd() override;

 private:
  /// What is known of a key's parameter.
  struct KeyRange {
    float minimum = 0, maximum = 1;
    bool isKnown = false;
    std::size_t names = 0;
  };

  void configure(std::size_t index);
  void tellHold(std::size_t index, bool held);

  ShapeControl* shape_ = nullptr;
  std::vector<KeyRange> ranges_;
  bool inverted_ = false;
};

/// Mixed into the kinds that show the audio unit's sample data: a recording, the waves of a table.
class SampleDataDisplay {
 public:
  using DataSource = std::function<std::shared_ptr<const platform::SampleData>()>;

  virtual ~SampleDataDisplay() = default;
  /// Asked now and at each display frame for what is to be shown; may be empty.
  void setDataSource(DataSource source) {
    source_ = std::move(source);
    showData(source_ ? source_() : nullptr);
  }

 protected:
  bool hasDataSource() const { return static_cast<bool>(source_); }
  /// Once per display frame.
  void readData() {
    if (source_) showData(source_());
  }
  virtual void showData(std::shared_ptr<const platform::SampleData> data) = 0;

 private:
  DataSource source_;
};

}  // namespace kestroui

#pragma once

#include <memory>
#include <vector>

#include "KestroUI/Container.h"
#include "KestroUI/ValueStrip.h"

namespace kestroui {

/// A strip for each of its keys below its title, so that every parameter that it drives can be
/// reached. Base of the kinds whose parameters are many.
class ValueStripContainer : public Container {
 public:
  ValueStripContainer();
  ~ValueStripContainer() override;

  void setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) override;
  using Container::value;
  float value(const std::string& key) const override;
  void showValue(const std::string& key, float value, const std::string& text) override;
  void setValueRange(float minimum, float maximum) override;
  void setInverted(bool inverted) override;
  void setControlColor(platform::Color color) override;
  void setColors(const std::vector<platform::Color>& colors) override;
  void setInactive(bool inactive) override;

  /// Null for a key that is none of its own.
  ValueStrip* strip(const std::string& key) const;
  void draw(const platform::Rect& rect) override;
  void paint(platform::Canvas& canvas) override;

 private:
  struct Row {
    std::shared_ptr<ParamKey> key;
    std::unique_ptr<ValueStrip> strip;
  };

  void styleStrips();
  void configureOwnStrip();

  std::vector<Row> rows_;
  float minimumValue_ = 0;
  float maximumValue_ = 1;
  bool inverted_ = false;
};

}  // namespace kestroui

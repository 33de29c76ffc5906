#include "KestroUI/FilterView.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestroui {

namespace {

constexpr std::array<std::string_view, 7> typeNames = {"lowPass", "hiPass",   "bandPass", "notch",
                                                       "peak",    "lowShelf", "hiShelf"};

}  // namespace

FilterView::FilterView() {
  setValueCount(2);
  setRange(1, -20, 40);
  setFrequency(1000);
}

void FilterView::setType(Type type) {
  if (type == type_) return;
  type_ = type;
  setNeedsDisplay();
}

std::string_view FilterView::typeName() const { return typeNames[static_cast<std::size_t>(type_)]; }

float FilterView::frequency() const { return static_cast<float>(Plot::hertzAt(value(0))); }

void FilterView::setFrequency(float hertz) {
  if (std::isnan(hertz)) return;
  setValue(0, static_cast<float>(Plot::shareOfHertz(std::clamp(hertz, 20.0f, 20000.0f))));
}

std::vector<ShapeControl::Handle> FilterView::handles() const {
  if (valueCount() == 0) return {};
  return {plotHandle(existing(0), existing(1))};
}

double FilterView::plainMagnitude(double hertz) const {
  const double ratio = hertz / Plot::hertzAt(liveShare(0).value_or(share(0)));
  const double amount = liveShare(1).value_or(existing(1) ? share(1) : 0.2);
  const double quality = PlainFilter::quality(amount);
  // The gain of a peak or a shelf, which stand still in the middle of the range.
  const double gain = (amount - 0.5) * 48;
  switch (type_) {
    case Type::lowPass:
      return PlainFilter::lowPass(ratio, quality);
    case Type::hiPass:
      return PlainFilter::highPass(ratio, quality);
    case Type::bandPass:
      return PlainFilter::bandPass(ratio, quality);
    case Type::notch:
      return PlainFilter::notch(ratio, quality);
    case Type::peak:
      return PlainFilter::peak(ratio, gain);
    case Type::lowShelf:
      return PlainFilter::lowShelf(ratio, gain);
    case Type::hiShelf:
      return PlainFilter::lowShelf(1 / ratio, gain);
  }
  return 0;
}

}  // namespace kestroui

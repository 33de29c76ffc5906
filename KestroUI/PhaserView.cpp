#include "KestroUI/PhaserView.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <complex>

namespace kestroui {

using platform::Path;
using platform::Point;
using platform::Rect;

namespace {

enum Part : std::size_t { centre, feedback, depth, stageCount };

const std::vector<KeyPart> partsOfAPhaser = {{"freq|cent|manual|cutoff", true},
                                             {"feedback|reso|regen", true},
                                             {"depth|amount|range|width"},
                                             {"stage|pole|notch"}};

constexpr double lowestLevel = -36, highestLevel = 12;
constexpr double usualCentre = 1000;
constexpr int usualStages = 6, mostStages = 24;
// Feedback at its maximum: at 1 the loop would sound forever.
constexpr double mostFeedback = 0.9;
// Octaves on each side at full depth.
constexpr double mostDepth = 2;

}  // namespace

PhaserView::PhaserView() : DisplayView(partsOfAPhaser) {}

double PhaserView::decibelsAt(double hertz, double centre, int stages, double feedback) {
  const double phase = -2.0 * stages * std::atan(hertz / std::max(centre, 1e-3));
  const std::complex<double> passed = std::polar(1.0, phase);
  const std::complex<double> looped = (passed - feedback) / (1.0 - feedback * passed);
  const double level = std::abs(1.0 + looped) / 2;
  return 20 * std::log10(std::max(level, 1e-8));
}

int PhaserView::stages() const {
  const auto [low, high] = range(stageCount, 2, 12);
  double count = measure(stageCount, low, high, usualStages);
  // Names such as "4 stages" say more than their places do.
  const std::vector<std::string>& names = valueNames(stageCount);
  if (!names.empty()) {
    const double last = static_cast<double>(names.size() - 1);
    const std::string& name =
        names[static_cast<std::size_t>(std::lround(amount(stageCount, 0) * last))];
    int number = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
    count = read.ec == std::errc() ? number : 2 + 2 * amount(stageCount, 0) * last;
  }
  return std::clamp(static_cast<int>(std::lround(count)), 1, mostStages);
}

std::vector<ShapeControl::Handle> PhaserView::pictureHandles() const {
  const Rect place = picture();
  Handle handle;
  handle.x = valueOf(centre);
  handle.y = valueOf(feedback);
  if (!handle.x && !handle.y) return {};
  const auto [low, high] = range(centre, Plot::hertzAt(0), Plot::hertzAt(1));
  const double from = Plot::shareOfHertz(std::max(low, 1.0));
  handle.travel = {place.width * std::max(0.05, Plot::shareOfHertz(high) - from), place.height};
  handle.place = {
      place.x + place.width * std::clamp(Plot::shareOfHertz(hertz(centre, usualCentre)), 0.0, 1.0),
      place.maxY() - place.height * amount(feedback, 0.5)};
  return {handle};
}

int PhaserView::points() const {
  return static_cast<int>(std::clamp(picture().width / 1.5, 32.0, 160.0));
}

Path PhaserView::path(Source source) const {
  const Rect place = picture();
  const double at = hertz(centre, usualCentre, source);
  // Around the middle of a range that is symmetrical, else from none.
  const auto [low, high] = range(feedback, 0, 1);
  const double turned = amount(feedback, 0.3, source);
  const double back = mostFeedback * (low < 0 && high > 0 ? 2 * turned - 1 : turned);
  const int count = stages(), last = points();
  Path path;
  for (int i = 0; i <= last; ++i) {
    const double x = static_cast<double>(i) / last;
    const double level = decibelsAt(Plot::hertzAt(x), at, count, back);
    const double up = std::clamp((level - lowestLevel) / (highestLevel - lowestLevel), 0.0, 1.0);
    const Point point{place.x + place.width * x, place.maxY() - place.height * up};
    if (i == 0)
      path.moveTo(point);
    else
      path.lineTo(point);
  }
  return path;
}

void PhaserView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  const platform::Color accent = stateAccent();
  const double zero = (0 - lowestLevel) / (highestLevel - lowestLevel);
  Plot::paintGrid(canvas, place,
                  {Plot::shareOfHertz(100), Plot::shareOfHertz(1000), Plot::shareOfHertz(10000)},
                  {zero / 2, zero}, 0.35f);
  if (valueOf(depth)) {
    const double sweep = mostDepth * amount(depth, 0, Source::live);
    const double middle = hertz(centre, usualCentre);
    const auto xOf = [&](double octaves) {
      return place.x +
             place.width * std::clamp(Plot::shareOfHertz(middle * std::exp2(octaves)), 0.0, 1.0);
    };
    canvas.fillRect({xOf(-sweep), place.y, xOf(sweep) - xOf(-sweep), place.height},
                    accent.withAlpha(accent.alpha * 0.08f));
  }
  const bool live = isLive();
  // While it sweeps, the moving curve is the one to see.
  Plot::paintCurve(canvas, path(live ? Source::live : Source::set), place, place.maxY(), accent);
  if (live) canvas.strokePath(path(Source::set), {1}, accent.withAlpha(accent.alpha * 0.35f));
}

}  // namespace kestroui

#include "KestroUI/RecordingViews.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace kestroui {

using platform::Color;
using platform::Rect;

namespace {

// Points of width for each pair of extremes: finer is not seen.
constexpr double columnWidth = 1.5;
// Samples that are looked at for each column; a long recording is drawn from some of them.
constexpr std::size_t maxSamples = 512;

}  // namespace

bool WaveformOverview::setData(std::shared_ptr<const platform::SampleData> data) {
  if (data == data_) return false;
  data_ = std::move(data);
  outline_.clear();
  place_ = {};
  return true;
}

const platform::Path& WaveformOverview::outline(const platform::Rect& place) {
  if (place == place_) return outline_;
  place_ = place;
  outline_.clear();
  if (!data_ || data_->channels.empty() || place.isEmpty()) return outline_;
  const std::size_t length = data_->channels.front().size();
  if (length == 0) return outline_;
  const auto columns = static_cast<std::size_t>(std::clamp(
      place.width / columnWidth, 2.0, static_cast<double>(std::max<std::size_t>(length, 2))));
  std::vector<platform::Point> below;
  below.reserve(columns);
  for (std::size_t column = 0; column < columns; ++column) {
    const std::size_t from = column * length / columns;
    const std::size_t to = std::max(from + 1, (column + 1) * length / columns);
    const std::size_t step = std::max<std::size_t>(1, (to - from) / maxSamples);
    float low = 0, high = 0;
    for (const std::vector<float>& channel : data_->channels)
      for (std::size_t i = from; i < std::min(to, channel.size()); i += step) {
        if (!std::isfinite(channel[i])) continue;
        low = std::min(low, channel[i]);
        high = std::max(high, channel[i]);
      }
    const double x =
        place.x + place.width * static_cast<double>(column) / static_cast<double>(columns - 1);
    const auto y = [&](float level) {
      return place.midY() - place.height / 2 * std::clamp(level, -1.0f, 1.0f);
    };
    // Silence is a thin line.
    const double top = std::min(y(high), place.midY() - 0.4);
    if (column == 0)
      outline_.moveTo({x, top});
    else
      outline_.lineTo({x, top});
    below.push_back({x, std::max(y(low), place.midY() + 0.4)});
  }
  for (auto point = below.rbegin(); point != below.rend(); ++point) outline_.lineTo(*point);
  outline_.close();
  return outline_;
}

namespace {

const std::vector<KeyPart> partsOfASample = {{"loop start|loop begin|loop in"},
                                             {"loop end|loop out"},
                                             {"start|begin", true},
                                             {"end", true},
                                             {"position|playhead|head|cursor"}};

}  // namespace

SampleView::SampleView() : RecordingView(partsOfASample) {}

bool SampleView::isMeasured(std::size_t part) const { return part == head; }

double SampleView::xOf(std::size_t part, double otherwise, Source source) const {
  const Rect place = picture();
  return place.x + place.width * amount(part, otherwise, source);
}

std::vector<ShapeControl::Handle> SampleView::pictureHandles() const {
  const Rect place = picture();
  std::vector<Handle> result;
  for (const std::size_t part : {start, end, loopStart, loopEnd}) {
    const auto index = valueOf(part);
    if (!index) continue;
    Handle handle;
    handle.x = index;
    // Those of the loop are held at the top, so that both can be reached where they meet.
    const bool loops = part == loopStart || part == loopEnd;
    handle.place = {xOf(part, 0, Source::set),
                    loops ? place.y + place.height * 0.14 : place.maxY() - place.height * 0.14};
    handle.travel.width = place.width;
    result.push_back(handle);
  }
  return result;
}

float SampleView::limited(std::size_t index, float value) const {
  for (const auto& [first, last] : {std::pair{start, end}, std::pair{loopStart, loopEnd}}) {
    const auto from = valueOf(first), to = valueOf(last);
    if (!from || !to) continue;
    if (index == *from) return std::min(value, this->value(*to));
    if (index == *to) return std::max(value, this->value(*from));
  }
  return value;
}

void SampleView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  const Color accent = stateAccent();
  canvas.fillRect({place.x, place.midY() - 0.375, place.width, 0.75}, Theme::line.withAlpha(0.5f));
  const double from = xOf(start, 0, Source::live);
  const double to = std::max(from, xOf(end, 1, Source::live));
  const platform::Path& wave = outline(place);
  if (!wave.isEmpty()) {
    canvas.fillPath(wave, accent.withAlpha(accent.alpha * 0.22f));
    canvas.save();
    canvas.clip({from, place.y, to - from, place.height});
    canvas.fillPath(wave, accent.withAlpha(accent.alpha * 0.85f));
    canvas.restore();
  } else if (place.width > 60 && place.height > 30) {
    canvas.drawText("No sample", Theme::labelFont.withSize(std::min(11.0, place.height * 0.3)),
                    place, platform::TextAlignment::centre, Theme::textDim.withAlpha(0.6f));
  }
  canvas.fillRect({from, place.y, to - from, place.height}, accent.withAlpha(accent.alpha * 0.07f));
  for (const double x : {from, to}) canvas.fillRect({x - 0.75, place.y, 1.5, place.height}, accent);
  if (valueOf(loopStart) || valueOf(loopEnd)) {
    const double left = xOf(loopStart, 0, Source::live);
    const double right = std::max(left, xOf(loopEnd, 1, Source::live));
    const Color loop = colorOf(1);
    canvas.fillRect({left, place.y, right - left, 3}, loop.withAlpha(loop.alpha * 0.8f));
    for (const double x : {left, right})
      canvas.fillRect({x - 0.5, place.y, 1, place.height}, loop.withAlpha(loop.alpha * 0.8f));
  }
  if (const auto at = output(head)) {
    const auto [low, high] = range(head, 0, 1);
    const double share = high > low ? std::clamp((*at - low) / (high - low), 0.0, 1.0) : 0;
    canvas.fillRect({place.x + place.width * share - 0.5, place.y, 1, place.height}, Theme::white);
  }
}

void SampleView::paintHandle(platform::Canvas& canvas, const Handle& handle,
                             Plot::HandleState state) {
  const bool loops = handle.x == valueOf(loopStart) || handle.x == valueOf(loopEnd);
  if (!handle.x || !loops) return RecordingView::paintHandle(canvas, handle, state);
  Plot::paintHandle(canvas, handle.place, Plot::handleRadius(bounds().size()), colorOf(1), state);
}

namespace {

const std::vector<KeyPart> partsOfGrains = {{"position|offset|start", true},
                                            {"density|rate|grains|count", true},
                                            {"size|length|duration", true},
                                            {"spray|random|jitter|spread|scatter", true},
                                            {"pitch|tune|transpose"}};

// Parts of the picture's width.
constexpr double shortest = 0.012, longest = 0.22;
constexpr double maxSpray = 0.8;

// The same grain lies at the same place in every frame, so that nothing moves by itself.
double scattered(std::uint32_t grain, std::uint32_t salt) {
  std::uint32_t x = (grain + 1) * 2654435761u ^ salt * 2246822519u;
  x ^= x >> 15;
  x *= 2246822519u;
  x ^= x >> 13;
  return x / 4294967295.0 - 0.5;
}

}  // namespace

GranulizerView::GranulizerView() : RecordingView(partsOfGrains) {}

std::vector<ShapeControl::Handle> GranulizerView::pictureHandles() const {
  const Rect place = picture();
  std::vector<Handle> result;
  const double x = place.x + place.width * amount(position, 0.5);
  Handle cloud;
  cloud.x = valueOf(position);
  cloud.y = valueOf(density);
  cloud.place = {x, place.maxY() - place.height * amount(density, 0.5)};
  cloud.travel = {place.width, place.height};
  if (cloud.x || cloud.y) result.push_back(cloud);
  Handle grain;
  grain.x = valueOf(length);
  grain.y = valueOf(spray);
  // On the side where there is room for it.
  const double side = amount(position, 0.5) > 0.6 ? -1 : 1;
  const double way = 0.05 + amount(length, 0.3) * 0.3;
  grain.place = {x + side * place.width * way, place.maxY() - place.height * amount(spray, 0.3)};
  grain.travel = {side * place.width * 0.3, place.height};
  if (grain.x || grain.y) result.push_back(grain);
  return result;
}

void GranulizerView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  const Color accent = stateAccent();
  Plot::paintGrid(canvas, place, {0.25, 0.5, 0.75}, {0.5}, 0.25f);
  const platform::Path& wave = outline(place.inset(0, place.height * 0.12));
  if (!wave.isEmpty()) canvas.fillPath(wave, Theme::line.withAlpha(0.55f));
  paintGrains(canvas);
  const double x = place.x + place.width * amount(position, 0.5, Source::live);
  canvas.fillRect({x - 0.5, place.y, 1, place.height}, accent.withAlpha(accent.alpha * 0.6f));
}

void GranulizerView::paintGrains(platform::Canvas& canvas) {
  const Rect place = picture();
  const Color accent = stateAccent();
  const double at = amount(position, 0.5, Source::live);
  const double spread = 0.02 + maxSpray * amount(spray, 0.3, Source::live);
  const double width =
      place.width * (shortest + (longest - shortest) * amount(length, 0.3, Source::live));
  const double lift = (amount(pitch, 0.5, Source::live) - 0.5) * 0.5;
  const auto count =
      static_cast<std::uint32_t>(4 + std::lround(32 * amount(density, 0.5, Source::live)));
  const double height = std::clamp(place.height * 0.06, 1.5, 7.0);
  for (std::uint32_t i = 0; i < count; ++i) {
    // Two draws add up to more grains in the middle than at the sides.
    const double away = (scattered(i, 1) + scattered(i, 2)) * spread;
    const double up = 0.5 + scattered(i, 3) * 0.8 + lift;
    const Rect grain{place.x + place.width * (at + away) - width / 2,
                     place.maxY() - place.height * std::clamp(up, 0.03, 0.97) - height / 2, width,
                     height};
    const auto strength = static_cast<float>(0.25 + 0.5 * (scattered(i, 4) + 0.5));
    canvas.fillRoundedRect(grain, height / 2, accent.withAlpha(accent.alpha * strength));
  }
}

}  // namespace kestroui

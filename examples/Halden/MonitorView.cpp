#include "examples/Halden/MonitorView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "KestroUI/Plot.h"

namespace halden {

using platform::Rect;
namespace Plot = kestroui::Plot;

namespace {

/// Of the loudness, in entries.
constexpr std::size_t shownLoudness = 400;
/// The level at the bottom of the loudness, in decibels.
constexpr double quietest = -48;

double heightOf(double decibels, double bottom) {
  return std::clamp(1 - decibels / bottom, 0.0, 1.0);
}

}  // namespace

void MonitorView::setBuffers(const platform::LiveBuffer* sound,
                             const platform::LiveBuffer* loudness) {
  sound_ = sound;
  loudness_ = loudness;
  written_ = 0;
  shown_.clear();
  spectrum_.clear();
  setNeedsDisplay();
}

void MonitorView::setMode(MonitorMode mode) {
  if (mode == mode_) return;
  mode_ = mode;
  setBuffers(sound_, loudness_);
}

void MonitorView::setAccentColor(platform::Color color) {
  if (color == accent_) return;
  accent_ = color;
  setNeedsDisplay();
}

void MonitorView::read(double sampleRate) {
  if (mode_ == MonitorMode::loudness) return readLoudness();
  if (mode_ != MonitorMode::spectrum || !sound_) return;
  const std::uint64_t written = sound_->written();
  if (written == std::exchange(written_, written)) return;
  incoming_.resize(Spectrum::length);
  incoming_.resize(sound_->newest(incoming_));
  if (spectrum_.read(incoming_, sampleRate)) setNeedsDisplay();
}

void MonitorView::readLoudness() {
  if (!loudness_) return;
  const std::uint64_t written = loudness_->written();
  if (written == std::exchange(written_, written)) return;
  incoming_.resize(shownLoudness);
  incoming_.resize(loudness_->newest(incoming_));
  if (incoming_ == shown_) return;
  std::swap(incoming_, shown_);
  setNeedsDisplay();
}

void MonitorView::paint(platform::Canvas& canvas) {
  const Rect face = bounds();
  Plot::paintGround(canvas, face, accent_, {});
  const Rect plot = face.inset(1, 1);
  if (!(plot.width > 4 && plot.height > 4)) return;
  canvas.save();
  canvas.clip(plot);
  if (mode_ == MonitorMode::spectrum)
    paintSpectrum(canvas, plot);
  else
    paintLoudness(canvas, plot);
  canvas.restore();
}

void MonitorView::paintSpectrum(platform::Canvas& canvas, const Rect& plot) {
  Plot::paintGrid(canvas, plot,
                  {Plot::shareOfHertz(100), Plot::shareOfHertz(1000), Plot::shareOfHertz(10000)},
                  {0.25, 0.5, 0.75}, 0.4f);
  platform::Path curve;
  const std::vector<float>& levels = spectrum_.levels();
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(levels.size() - 1);
    // What rests on the floor is drawn below the edge.
    const double y =
        plot.maxY() + 2 - (plot.height + 2) * heightOf(double{levels[i]}, double{Spectrum::floor});
    const platform::Point point{plot.x + plot.width * share, y};
    if (i == 0)
      curve.moveTo(point);
    else
      curve.lineTo(point);
  }
  Plot::paintCurve(canvas, curve, plot, plot.maxY(), accent_, 1.25);
}

void MonitorView::paintLoudness(platform::Canvas& canvas, const Rect& plot) {
  // A line each second, and each twelve decibels.
  Plot::paintGrid(canvas, plot, {0.25, 0.5, 0.75}, {0.25, 0.5, 0.75}, 0.4f);
  platform::Path curve;
  curve.moveTo({plot.x, plot.maxY() + 2});
  const std::size_t missing = shownLoudness - std::min(shownLoudness, shown_.size());
  for (std::size_t i = 0; i < shownLoudness; i += 2) {
    // The louder of two: a stroke that is drawn or not would flicker as it moves along.
    float loudest = 0;
    for (std::size_t n = i; n < i + 2; ++n)
      if (n >= missing) loudest = std::max(loudest, shown_[n - missing]);
    const double decibels = 20 * std::log10(std::max(double{loudest}, 1e-5));
    curve.lineTo({plot.x + plot.width * static_cast<double>(i) / (shownLoudness - 2),
                  plot.maxY() + 2 - (plot.height + 2) * heightOf(decibels, quietest)});
  }
  Plot::paintCurve(canvas, curve, plot, plot.maxY(), accent_, 1.25);
}

}  // namespace halden

#include "KestroUI/WaveformKnob.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestroui {

using Icons::Waveform;

namespace {

constexpr std::array<Waveform, 5> basicWaveforms = {
    Waveform::sine, Waveform::triangle, Waveform::saw, Waveform::square, Waveform::noise};

std::size_t indexOf(float share, std::size_t count) {
  const auto last = static_cast<float>(count - 1);
  return static_cast<std::size_t>(std::lround(std::clamp(share, 0.0f, 1.0f) * last));
}

}  // namespace

void WaveformKnob::setValueNames(const std::vector<std::string>& names) {
  if (names == names_) return;
  names_ = names;
  setNeedsDisplay();
}

void WaveformKnob::paintCentre(platform::Canvas& canvas, const platform::Rect& body) {
  // By the value itself, not by where it is drawn: an inverted knob shows the same waveform.
  const float range = maximum() - minimum();
  const float share = range > 0 ? (value() - minimum()) / range : 0;
  std::optional<Waveform> waveform;
  if (names_.empty())
    waveform = basicWaveforms[indexOf(share, basicWaveforms.size())];
  else
    waveform = Icons::waveformNamed(names_[indexOf(share, names_.size())]);
  const bool muted = isInactive() || !isEnabled();
  const platform::Color color = muted ? Theme::textDim : Theme::front;
  if (!waveform) {
    canvas.drawText(names_[indexOf(share, names_.size())],
                    Theme::valueFont.withSize(std::clamp(body.height * 0.24, 6.0, 15.0)),
                    body.inset(body.width * 0.12, 0), platform::TextAlignment::centre, color);
    return;
  }
  const double width = body.width * 0.5, height = body.height * 0.3;
  const platform::Rect place{body.midX() - width / 2, body.midY() - height / 2, width, height};
  canvas.strokePath(Icons::fitted(Icons::waveform(*waveform), place),
                    {std::clamp(body.width * 0.045, 1.0, 3.0)}, color);
}

}  // namespace kestroui

#include "KestroUI/DisplayView.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "foundation/UnicodeText.h"

namespace kestroui {

using platform::Color;
using platform::Rect;

namespace {

/// Calls `visit` with each piece of `text` until it returns true; whether it did.
template <class Visit>
bool anyPiece(std::string_view text, char separator, Visit visit) {
  while (true) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (visit(text.substr(0, end))) return true;
    if (end == text.size()) return false;
    text.remove_prefix(end + 1);
  }
}

bool names(const std::string& text, std::string_view words) {
  return anyPiece(words, '|', [&](std::string_view alternative) {
    return !anyPiece(alternative, ' ',
                     [&](std::string_view word) { return text.find(word) == std::string::npos; });
  });
}

}  // namespace

std::vector<std::optional<std::size_t>> playedParts(
    const std::vector<std::shared_ptr<ParamKey>>& keys, const std::vector<KeyPart>& parts) {
  std::vector<std::optional<std::size_t>> played(parts.size());
  std::vector<std::size_t> unnamed;
  for (std::size_t k = 0; k < keys.size(); ++k) {
    const std::string text =
        foundation::lowercased(keys[k]->key() + " " + keys[k]->settings().displayName);
    const auto isNamed = [&](const KeyPart& part) {
      return !part.words.empty() && names(text, part.words);
    };
    const auto meant = std::find_if(parts.begin(), parts.end(), isNamed);
    if (meant == parts.end()) {
      unnamed.push_back(k);
      continue;
    }
    const auto plays = [&](const auto& suits) {
      for (std::size_t p = 0; p < parts.size(); ++p)
        if (!played[p] && suits(parts[p])) {
          played[p] = k;
          return true;
        }
      return false;
    };
    // The second "gainReduction" is another reduction before it is a gain.
    if (!plays([&](const KeyPart& part) { return part.words == meant->words; })) plays(isNamed);
  }
  for (std::size_t p = 0; p < parts.size() && !unnamed.empty(); ++p) {
    if (played[p] || !parts[p].takesUnnamed) continue;
    played[p] = unnamed.front();
    unnamed.erase(unnamed.begin());
  }
  return played;
}

namespace {

// In points, on the smallest editor.
constexpr double stripHeight = 13;
constexpr double stripWidth = 96;
constexpr double stripGap = 3;
// Of the face's height: more would leave too little of the picture.
constexpr double maxShareForStrips = 0.42;

}  // namespace

void DisplayView::setKeys(const std::vector<std::shared_ptr<ParamKey>>& keys) {
  played_ = playedParts(keys, parts_);
  parameters_.assign(keys.size(), {});
  for (std::size_t i = 0; i < keys.size(); ++i) parameters_[i].title = keys[i]->title();
  setValueCount(keys.size());
  for (std::size_t part = 0; part < played_.size(); ++part) {
    if (!played_[part]) continue;
    parameters_[*played_[part]].measured = isMeasured(part);
  }
  for (const Handle& handle : pictureHandles()) {
    if (handle.x) parameters_[*handle.x].plays = true;
    if (handle.y) parameters_[*handle.y].plays = true;
  }
  setNeedsDisplay();
}

void DisplayView::setParameterRange(std::size_t index, float minimum, float maximum) {
  if (index >= parameters_.size() || !(minimum <= maximum)) return;
  if (!std::isfinite(minimum) || !std::isfinite(maximum)) return;
  parameters_[index].minimum = minimum;
  parameters_[index].maximum = maximum;
  setNeedsDisplay();
}

void DisplayView::setValueNames(std::size_t index, const std::vector<std::string>& names) {
  if (index >= parameters_.size()) return;
  parameters_[index].names = names;
  setNeedsDisplay();
}

void DisplayView::setOutput(std::size_t index, std::optional<float> value) {
  if (index >= parameters_.size()) return;
  if (value && !std::isfinite(*value)) value.reset();
  std::optional<float>& output = parameters_[index].output;
  // Meters flicker by less than anyone sees; those steps are not worth a repaint.
  const float minChange = 0.002f * (parameters_[index].maximum - parameters_[index].minimum);
  if (value.has_value() == output.has_value() &&
      (!value || std::fabs(*value - *output) <= minChange))
    return;
  output = value;
  setNeedsDisplay();
}

void DisplayView::setColors(const std::vector<Color>& colors) {
  if (colors == colors_) return;
  colors_ = colors;
  setNeedsDisplay();
}

// What the picture asks for

double DisplayView::amount(std::size_t part, double otherwise, Source source) const {
  const auto index = played_[part];
  if (!index) return otherwise;
  if (source == Source::live)
    if (const auto live = liveShare(*index)) return *live;
  return share(*index);
}

bool DisplayView::isMeasuredValue(std::size_t index) const {
  return index < parameters_.size() && parameters_[index].measured;
}

bool DisplayView::hasUnit(const Parameter& parameter) const {
  return parameter.minimum < 0 || parameter.maximum > 1;
}

std::pair<double, double> DisplayView::range(std::size_t part, double low, double high) const {
  if (const auto index = played_[part]; index && hasUnit(parameters_[*index]))
    return {parameters_[*index].minimum, parameters_[*index].maximum};
  return {low, high};
}

double DisplayView::measure(std::size_t part, double low, double high, double otherwise,
                            Source source) const {
  if (!played_[part]) return otherwise;
  const auto [lowest, highest] = range(part, low, high);
  return lowest + (highest - lowest) * amount(part, 0, source);
}

double DisplayView::hertz(std::size_t part, double otherwise, Source source) const {
  if (!played_[part]) return otherwise;
  const auto [lowest, highest] = range(part, Plot::hertzAt(0), Plot::hertzAt(1));
  const double low = std::max(lowest, 1.0);
  return low * std::pow(std::max(highest, low) / low, amount(part, 0, source));
}

std::optional<double> DisplayView::output(std::size_t part) const {
  const auto index = played_[part];
  if (!index) return std::nullopt;
  if (parameters_[*index].output) return *parameters_[*index].output;
  // Some processors report what they measure as the parameter's value.
  return hasUnit(parameters_[*index]) ? std::optional<double>(measure(part, 0, 1, 0))
                                      : std::nullopt;
}

bool DisplayView::isLive() const {
  for (std::size_t i = 0; i < parameters_.size(); ++i)
    if (liveShare(i)) return true;
  return false;
}

const std::vector<std::string>& DisplayView::valueNames(std::size_t part) const {
  static const std::vector<std::string> none;
  return played_[part] ? parameters_[*played_[part]].names : none;
}

Color DisplayView::colorOf(std::size_t index) const {
  const Color accent = stateAccent();
  if (index == 0) return accent;
  const Color own = index < colors_.size()
                        ? colors_[index]
                        : accent.mixed(Theme::white, 0.22f * static_cast<float>(index));
  return isMuted() ? Theme::muted(own).withAlpha(accent.alpha) : own;
}

// Strips

DisplayView::Strips DisplayView::strips() const {
  Strips result;
  for (std::size_t i = 0; i < parameters_.size(); ++i)
    if (!parameters_[i].plays && !parameters_[i].measured) result.values.push_back(i);
  if (result.values.empty()) return result;
  const Rect face = plot();
  const std::size_t count = result.values.size();
  const double limit = face.height * maxShareForStrips;
  const auto fitting = [&](double width) {
    return static_cast<std::size_t>(std::clamp(std::floor(face.width / width), 1.0, 64.0));
  };
  const auto rowsOf = [count](std::size_t perRow) { return (count + perRow - 1) / perRow; };
  const auto rows = [&] { return static_cast<double>(rowsOf(result.perRow)); };
  result.rowHeight = stripHeight * faceScale();
  // Too many for their place: narrower, then lower, down to nothing to take hold of.
  for (const double part : {1.0, 0.5, 0.3}) {
    result.perRow = std::min(count, fitting(stripWidth * faceScale() * part));
    if (rows() * (result.rowHeight + stripGap) <= limit) break;
  }
  // Rows of about the same number.
  result.perRow = rowsOf(rowsOf(result.perRow));
  result.rowHeight = std::min(result.rowHeight, limit / rows() - stripGap);
  if (result.rowHeight < 5) {
    result.rowHeight = 0;
    return result;
  }
  const double height = rows() * (result.rowHeight + stripGap);
  result.area = {face.x, face.maxY() - height, face.width, height};
  return result;
}

Rect DisplayView::stripAt(const Strips& strips, std::size_t place) const {
  if (strips.area.isEmpty()) return {};
  const auto column = static_cast<double>(place % strips.perRow);
  const std::size_t rowsAbove = place / strips.perRow;
  const auto row = static_cast<double>(rowsAbove);
  const double width = strips.area.width / static_cast<double>(strips.perRow);
  return {strips.area.x + column * width,
          strips.area.y + stripGap + row * (strips.rowHeight + stripGap),
          width - (column + 1 < static_cast<double>(strips.perRow) ? stripGap : 0),
          strips.rowHeight};
}

Rect DisplayView::stripOf(std::size_t index) const {
  const Strips all = strips();
  for (std::size_t i = 0; i < all.values.size(); ++i)
    if (all.values[i] == index) return stripAt(all, i);
  return {};
}

Rect DisplayView::picture() const {
  Rect rest = plot();
  rest.height -= strips().area.height;
  return rest;
}

std::vector<ShapeControl::Handle> DisplayView::handles() const {
  std::vector<Handle> all = pictureHandles();
  const Strips rows = strips();
  for (std::size_t i = 0; i < rows.values.size(); ++i) {
    const Rect strip = stripAt(rows, i);
    Handle handle;
    handle.x = rows.values[i];
    handle.place = {strip.x + strip.width * share(rows.values[i]), strip.midY()};
    handle.travel = {std::max(1.0, strip.width), 0};
    all.push_back(handle);
  }
  return all;
}

std::optional<std::size_t> DisplayView::handleAt(platform::Point location) const {
  const std::vector<Handle> all = handles();
  const Strips rows = strips();
  const std::size_t first = all.size() - rows.values.size();
  if (!rows.area.isEmpty() && location.y >= rows.area.y) {
    for (std::size_t i = 0; i < rows.values.size(); ++i)
      if (stripAt(rows, i).inset(-stripGap, -stripGap / 2).contains(location)) return first + i;
  }
  return nearestOf(all, first, location);
}

void DisplayView::paintShape(platform::Canvas& canvas, const Rect&) {
  if (!picture().isEmpty()) paintPicture(canvas);
  const Strips rows = strips();
  for (std::size_t i = 0; i < rows.values.size(); ++i)
    paintStrip(canvas, rows.values[i], stripAt(rows, i));
}

void DisplayView::paintStrip(platform::Canvas& canvas, std::size_t index, const Rect& place) {
  if (!(place.width >= 6) || !(place.height >= 3)) return;
  const Color accent = stateAccent();
  canvas.fillRoundedRect(place, 2, stateSurface().withAlpha(0.75f));
  const double from = origin(index), to = share(index);
  const double left = std::min(from, to), right = std::max(from, to);
  if (right > left)
    canvas.fillRoundedRect(
        {place.x + place.width * left, place.y, place.width * (right - left), place.height}, 2,
        accent.withAlpha(accent.alpha * 0.34f));
  const double edge = place.x + (place.width - 1.5) * to;
  canvas.fillRect({edge, place.y, 1.5, place.height}, accent);
  if (const auto live = liveShare(index))
    canvas.fillRect({place.x + (place.width - 1.5) * *live, place.y, 1.5, place.height},
                    Theme::white);
  if (place.height < 8 || place.width < 26) return;
  const double size = place.height * 0.62;
  const Rect inside = place.inset(std::min(4.0, place.width * 0.06), 0);
  const std::string& value = text(index);
  const platform::Font font = Theme::valueFont.withSize(size);
  const double wanted = value.empty() ? 0 : canvas.textWidth(value, font) + 1;
  const double valueWidth = std::min(wanted, inside.width);
  const double nameWidth = inside.width - valueWidth - 4;
  canvas.drawText(value, font, {inside.maxX() - valueWidth, inside.y, valueWidth, inside.height},
                  platform::TextAlignment::right, isMuted() ? Theme::textDim : Theme::text);
  if (nameWidth >= 12)
    canvas.drawText(parameters_[index].title, Theme::labelFont.withSize(size),
                    {inside.x, inside.y, nameWidth, inside.height}, platform::TextAlignment::left,
                    Theme::textDim);
}

void DisplayView::paintHandle(platform::Canvas& canvas, const Handle& handle,
                              Plot::HandleState state) {
  const auto index = handle.x ? handle.x : handle.y;
  if (!index || parameters_[*index].plays) return ShapeControl::paintHandle(canvas, handle, state);
  const Rect strip = stripOf(*index);
  if (state != Plot::HandleState::resting && !strip.isEmpty())
    canvas.strokeRoundedRect(strip.inset(0.5, 0.5), 2, 1,
                             stateAccent().withAlpha(state == Plot::HandleState::held ? 1 : 0.6f));
}

}  // namespace kestroui

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "KestroUI/ParamKey.h"
#include "KestroUI/ShapeControl.h"

namespace kestroui {

/// A part that one of a container's values plays in its picture.
struct KeyPart {
  /// What a key's own string or display name says when it plays the part: alternatives separated
  /// by '|', each of words separated by blanks that must all occur. Letter case does not matter.
  /// Empty for a part that no key names.
  std::string_view words;
  /// Whether a key that names no part may play it; such keys take the free parts in order.
  bool takesUnnamed = false;
};

/// The key that plays each part, by its place among `keys`. A key plays at most one part, and of
/// several keys that name the same part the first one plays it, the next one a later part of the
/// same words.
std::vector<std::optional<std::size_t>> playedParts(
    const std::vector<std::shared_ptr<ParamKey>>& keys, const std::vector<KeyPart>& parts);

/// Base of the faces that show what a processor does with the sound: a picture whose handles move
/// the values that play a part in it, and below it a strip for each further value, so that every
/// parameter can be reached. A kind names its parts and paints its picture.
class DisplayView : public ShapeControl {
 public:
  /// What each value plays is told by its key; see KeyPart.
  void setKeys(const std::vector<std::shared_ptr<ParamKey>>& keys);
  /// The range of the parameter behind a value: pictures are drawn to its scale.
  void setParameterRange(std::size_t index, float minimum, float maximum);
  /// The names of a value that chooses, from its minimum up.
  void setValueNames(std::size_t index, const std::vector<std::string>& names);
  /// What the processor measures, in the parameter's unit (a level, the gain reduction, a playing
  /// position), or none; shown where a value plays such a part.
  void setOutput(std::size_t index, std::optional<float> value);
  /// Colours beside the accent, for pictures of several things.
  void setColors(const std::vector<platform::Color>& colors);

  /// Whether a value plays a part that only shows what is measured.
  bool isMeasuredValue(std::size_t index) const;
  /// The place of a value's strip, in this view's coordinates; empty for one that has none.
  platform::Rect stripOf(std::size_t index) const;

 protected:
  /// What is drawn: what the user has set, or what the values are at this moment.
  enum class Source { set, live };

  explicit DisplayView(std::vector<KeyPart> parts) : parts_(std::move(parts)) {}

  /// Those that move the picture; each moves the value of a part.
  virtual std::vector<Handle> pictureHandles() const = 0;
  /// Clipped to the face.
  virtual void paintPicture(platform::Canvas& canvas) = 0;
  /// A part that only shows what is measured has no strip.
  virtual bool isMeasured(std::size_t /*part*/) const { return false; }

  std::vector<Handle> handles() const final;
  std::optional<std::size_t> handleAt(platform::Point location) const override;
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) final;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;

  /// The part of the face that is left for the picture.
  platform::Rect picture() const;
  /// The value that plays a part, if one does.
  std::optional<std::size_t> valueOf(std::size_t part) const { return played_[part]; }
  /// Its share of the range from 0 to 1 as drawn, or `otherwise` when nothing plays the part.
  double amount(std::size_t part, double otherwise, Source source = Source::set) const;
  /// The same in the parameter's unit. A range from 0 to 1 is a parameter without one: it then
  /// runs from `low` to `high`.
  double measure(std::size_t part, double low, double high, double otherwise,
                 Source source = Source::set) const;
  /// The same for a frequency, which moves in pitch; one without hertz runs from 20 Hz to 20 kHz.
  double hertz(std::size_t part, double otherwise, Source source = Source::set) const;
  /// The lowest and the highest value that a part can take, as `measure` reads them.
  std::pair<double, double> range(std::size_t part, double low, double high) const;
  std::optional<double> output(std::size_t part) const;
  /// Whether any value is shown live, so that `Source::live` differs from what is set.
  bool isLive() const;
  const std::vector<std::string>& valueNames(std::size_t part) const;
  /// The colour of the nth thing of the picture: the accent, then the others.
  platform::Color colorOf(std::size_t index) const;

 private:
  struct Parameter {
    float minimum = 0, maximum = 1;
    std::vector<std::string> names;
    std::optional<float> output;
    std::string title;
    bool plays = false;
    bool measured = false;
  };
  struct Strips {
    std::vector<std::size_t> values;
    platform::Rect area;
    std::size_t perRow = 1;
    double rowHeight = 0;
  };

  bool hasUnit(const Parameter& parameter) const;
  Strips strips() const;
  platform::Rect stripAt(const Strips& strips, std::size_t place) const;
  void paintStrip(platform::Canvas& canvas, std::size_t index, const platform::Rect& place);

  std::vector<KeyPart> parts_;
  std::vector<std::optional<std::size_t>> played_ =
      std::vector<std::optional<std::size_t>>(parts_.size());
  std::vector<Parameter> parameters_;
  std::vector<platform::Color> colors_;
};

}  // namespace kestroui

#pragma once

namespace platform {
class AUParameter;
}

namespace orvane {

/// The one mapping between a parameter's value and the position from 0 to 1 that shows it: linear
/// in pitch for a hertz parameter, linear in the value for any other. Small enough to be copied
/// into callbacks that may outlive the parameter.
class ParameterMapping {
 public:
  enum class Scale { linear, pitch };

  ParameterMapping(float minimum, float maximum, Scale scale);
  explicit ParameterMapping(const platform::AUParameter& parameter);

  /// 0 for NaN and where the range is empty.
  float positionOf(float value) const;
  /// Exactly the ends of the range at 0 and 1; NaN for NaN, which no parameter takes.
  float valueAt(float position) const;

 private:
  float minimum_;
  float maximum_;
  Scale scale_;
};

}  // namespace orvane

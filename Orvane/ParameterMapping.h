#pragma once

#include "KestroUI/Container.h"

namespace platform {
class AUParameter;
}

namespace orvane {

/// Whether only whole numbers are values of the parameter: it counts its values or switches.
bool takesWholeValues(const platform::AUParameter& parameter);

/// The one mapping between a parameter's value and what a control holds for it: a position from 0
/// to 1, linear in pitch for a hertz parameter and linear in the value for any other; or the value
/// itself. Small enough to be copied into callbacks that may outlive the parameter.
class ParameterMapping {
 public:
  enum class Scale { linear, pitch, same };

  ParameterMapping(float minimum, float maximum, Scale scale);
  explicit ParameterMapping(const platform::AUParameter& parameter);
  /// As a control of this form holds it. A form of pitch takes the values of a hertz parameter as
  /// frequencies; those of any other are its positions already.
  ParameterMapping(const platform::AUParameter& parameter, kestroui::Container::ValueForm form);

  /// 0 for NaN and where the range is empty.
  float positionOf(float value) const;
  /// Exactly the ends of the range at 0 and 1, and exactly whole for a parameter that counts or
  /// switches; NaN for NaN, which no parameter takes.
  float valueAt(float position) const;

 private:
  float minimum_;
  float maximum_;
  Scale scale_;
  bool isWhole_ = false;
};

}  // namespace orvane

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Geometry.h"

namespace tool {

/// `text` on one line: control characters become blanks, what is no UTF-8 question marks.
std::string oneLine(std::string_view text);
/// In double quotes, on one line, cut after sixty characters.
std::string inQuotes(std::string_view text);

/// The number that is all of `text`; none for any other text, infinity and NaN included.
std::optional<double> parseNumber(std::string_view text);
/// A whole number from 0 on.
std::optional<int> parseCount(std::string_view text);
/// "WxH", both above 0 and at most 16384 points.
std::optional<platform::Size> parseSize(std::string_view text);
/// The shortest decimal of a number.
std::string numberText(double number);
/// "[0.5, 2]"
std::string rangeText(double low, double high);
/// "480x320"
std::string sizeText(const platform::Size& size);

/// The shortest decimal that reads back as this float: 0.1f is 0.1.
double shortest(float value);
/// Without the noise of sums of fractions, for places and sizes in points.
double tidy(double points);

}  // namespace tool

#include "KestroUI/ValueNames.h"

#include <cmath>

namespace kestroui {

std::vector<std::string> numbers(float minimum, float maximum) {
  constexpr long most = 128;
  std::vector<std::string> texts;
  if (!std::isfinite(minimum) || !(minimum <= maximum)) return texts;
  const long first = std::lround(minimum);
  for (long i = 0; i < most && static_cast<float>(first + i) <= maximum; ++i)
    texts.push_back(std::to_string(first + i));
  return texts;
}

}  // namespace kestroui

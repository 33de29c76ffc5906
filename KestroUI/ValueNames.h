#pragma once

#include <string>
#include <vector>

namespace kestroui {

/// The whole numbers from `minimum` to `maximum` as texts, for values that have no names; at most
/// 128 of them.
std::vector<std::string> numbers(float minimum, float maximum);

}  // namespace kestroui

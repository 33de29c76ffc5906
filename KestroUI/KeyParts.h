#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "KestroUI/ParamKey.h"

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

}  // namespace kestroui

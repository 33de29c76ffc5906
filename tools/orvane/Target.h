#pragma once

#include <string>
#include <string_view>

#include "KestroUI/Container.h"
#include "backends/headless/HeadlessHost.h"

namespace tool {

/// One word of a script line; a word in double quotes may hold blanks.
struct Word {
  std::string text;
  bool isQuoted = false;
};

/// The container on screen whose control moves the parameter, or null: the innermost of several.
kestroui::Container* shownContainer(headless::HeadlessHost& host, const std::string& key);

/// The part of a container that shows its values, and where a finger changes them.
toolkit::View& valuePart(kestroui::Container& container);

/// The place in root coordinates that a script means: `key:KEY` (the part of the parameter's
/// container that holds its value), `CLASS`, `CLASS#2`, `"TEXT"` or `at:X,Y`. Throws a Failure when
/// there is no such place on screen.
platform::Point placeOfTarget(headless::HeadlessHost& host, const Word& target);

}  // namespace tool

#pragma once

#include <memory>
#include <optional>

#include "backends/headless/HeadlessHost.h"
#include "backends/headless/HeadlessRunLoop.h"
#include "tools/orvane/Plugin.h"

namespace tool {

/// An editor that is on screen, in a host without a display; the same each time.
struct Editor {
  /// Throws a Failure when there is no such page.
  Editor(const Plugin& plugin, std::optional<platform::Size> size, std::optional<int> page);

  headless::HeadlessRunLoop loop;
  headless::HeadlessHost host;
};

/// Shows a page; throws a Failure, which begins with `place` if it is not empty, when there is no
/// such page.
void showPage(headless::HeadlessHost& host, int page, const std::string& place);

}  // namespace tool

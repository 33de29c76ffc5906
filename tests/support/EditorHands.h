#pragma once

#include <set>
#include <vector>

#include "backends/headless/HeadlessHost.h"

namespace support {

/// An editor without a display and the hands of someone who uses it.
struct EditorHands {
  explicit EditorHands(const orvane::PluginEntry& entry) : host(loop, entry) { host.appear(); }

  bool press(platform::Key key, platform::Modifiers modifiers = platform::Modifiers::none) {
    return host.pressKey({key, modifiers, ""});
  }
  toolkit::View* focused() { return host.window().firstResponder(); }
  void dropFocus() {
    if (focused()) focused()->resignFirstResponder();
  }
  int pageCount() {
    return static_cast<int>(host.editor().settingsViewController().pageViews().size());
  }
  void showPage(int page) {
    host.editor().settingsViewController().setCurrentPage(page);
    loop.runDue();
    loop.advance(0.2);
  }
  /// Everything that Tab reaches, once round.
  std::vector<toolkit::View*> walk(platform::Modifiers modifiers = platform::Modifiers::none) {
    std::vector<toolkit::View*> views;
    std::set<toolkit::View*> known;
    while (press(platform::Key::tab, modifiers) && known.insert(focused()).second)
      views.push_back(focused());
    return views;
  }
  template <class Visit>
  static void visitShown(toolkit::View& view, const Visit& visit) {
    if (view.isHidden()) return;
    visit(view);
    for (toolkit::View* subview : view.subviews()) visitShown(*subview, visit);
  }

  headless::HeadlessRunLoop loop;
  headless::HeadlessHost host;
};

}  // namespace support

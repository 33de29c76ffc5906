#include "tools/orvane/Target.h"

#include <optional>
#include <vector>

#include "KestroUI/MidiMapBadge.h"
#include "backends/headless/RecordingCanvas.h"
#include "toolkit/Button.h"
#include "toolkit/Label.h"
#include "toolkit/Window.h"
#include "tools/orvane/Problems.h"
#include "tools/orvane/Text.h"
#include "tools/orvane/ViewTree.h"

namespace tool {

using headless::HeadlessHost;
using headless::RecordingCanvas;
using platform::Point;
using toolkit::View;

namespace {

Point centreOf(const View& view, const std::string& name) {
  if (view.bounds().isEmpty()) throw Failure(inQuotes(name) + " has no size yet");
  return view.frameInRoot().centre();
}

Point placeOfKey(HeadlessHost& host, const std::string& key) {
  if (!host.audioUnit().parameter(key)) throw Failure("no parameter " + inQuotes(key));
  kestroui::Container* container = shownContainer(host, key);
  if (!container) throw Failure("the parameter " + inQuotes(key) + " is not on the shown page");
  if (const auto index = container->indexOf(key)) {
    // In learn mode its badge is what a finger reaches.
    const kestroui::MidiMapBadge* const badge = container->midiMapBadge(*index);
    if (badge && !badge->isHidden()) return badge->frameInRoot().centre();
    if (const auto place = container->handlePlace(*index)) return container->convertToRoot(*place);
  }
  return centreOf(valuePart(*container), key);
}

Point placeOfText(HeadlessHost& host, const std::string& text) {
  View* button = nullptr;
  View* label = nullptr;
  visitShown(host.rootView(), [&](View& view) {
    // What is scrolled away would lead to what lies there now.
    if (textOf(view) != text || !toolkit::Window::isInSight(view)) return;
    View*& found = dynamic_cast<toolkit::Control*>(&view) ? button : label;
    if (!found) found = &view;
  });
  if (button) return centreOf(*button, text);
  if (label) return centreOf(*label, text);
  // A row of a list, or one of several buttons in one control: what is painted last is on top.
  RecordingCanvas canvas;
  host.composite(canvas);
  std::optional<Point> place;
  for (const RecordingCanvas::Call& call : canvas.calls())
    if (call.operation == RecordingCanvas::Operation::drawText && call.text == text)
      place = call.area.centre();
  if (!place) throw Failure("nothing shows the text " + inQuotes(text));
  return *place;
}

Point placeOfCoordinates(const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma != std::string::npos) {
    const auto x = parseNumber(std::string_view(text).substr(0, comma));
    const auto y = parseNumber(std::string_view(text).substr(comma + 1));
    if (x && y) return {*x, *y};
  }
  throw Failure("a place is at:X,Y, not " + inQuotes("at:" + text));
}

Point placeOfClass(HeadlessHost& host, const std::string& text) {
  const std::size_t hash = text.find('#');
  const std::string name = text.substr(0, hash);
  const auto index =
      hash == std::string::npos ? 0 : parseCount(std::string_view(text).substr(hash + 1));
  if (!index) throw Failure("a number from 0 on comes after # in " + inQuotes(text));
  std::vector<View*> views;
  visitShown(host.rootView(), [&](View& view) {
    if (className(view) == name) views.push_back(&view);
  });
  if (views.empty()) throw Failure("no " + inQuotes(name) + " is shown");
  if (static_cast<std::size_t>(*index) >= views.size())
    throw Failure("only " + std::to_string(views.size()) + " of class " + inQuotes(name) +
                  (views.size() == 1 ? " is shown" : " are shown"));
  View& view = *views[static_cast<std::size_t>(*index)];
  if (auto* container = dynamic_cast<kestroui::Container*>(&view); container && container->key())
    return centreOf(valuePart(*container), text);
  return centreOf(view, text);
}

}  // namespace

kestroui::Container* shownContainer(HeadlessHost& host, const std::string& key) {
  kestroui::Container* own = nullptr;
  kestroui::Container* any = nullptr;
  visitShown(host.rootView(), [&](View& view) {
    auto* container = dynamic_cast<kestroui::Container*>(&view);
    if (!container) return;
    for (const auto& candidate : container->paramKeys())
      if (candidate->key() == key) any = container;
    if (container->key() && container->key()->key() == key) own = container;
  });
  return own ? own : any;
}

View& valuePart(kestroui::Container& container) {
  if (container.control()) return *container.control();
  // Kinds with several parts: the largest of them.
  View* largest = &container;
  double area = 0;
  for (View* child : container.subviews()) {
    const platform::Rect& frame = child->frame();
    if (!dynamic_cast<toolkit::Control*>(child)) continue;
    if (frame.width * frame.height <= area) continue;
    area = frame.width * frame.height;
    largest = child;
  }
  return *largest;
}

Point placeOfTarget(HeadlessHost& host, const Word& target) {
  Point place;
  if (target.isQuoted)
    place = placeOfText(host, target.text);
  else if (target.text.starts_with("key:"))
    place = placeOfKey(host, target.text.substr(4));
  else if (target.text.starts_with("at:"))
    place = placeOfCoordinates(target.text.substr(3));
  else
    place = placeOfClass(host, target.text);
  if (!host.rootView().bounds().contains(place))
    throw Failure(inQuotes(target.text) + " is outside the editor");
  return place;
}

}  // namespace tool

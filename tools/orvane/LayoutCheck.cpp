#include "tools/orvane/LayoutCheck.h"

#include <cmath>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/ValueContainers.h"
#include "Orvane/ControlBuilder.h"
#include "tools/orvane/Target.h"
#include "tools/orvane/Text.h"

namespace tool {

using kestroui::Container;
using platform::Rect;

namespace {

/// In points: a finger or a mouse still finds a control of this size.
constexpr double smallest = 12;
/// Neighbouring controls share one point, so that no gap shows between them.
constexpr double shared = 1.5;

/// Something with a place in the design, and where it is laid out.
struct Laid {
  std::string place;
  std::string name;
  Rect frame;
};

bool overlap(const Rect& a, const Rect& b) {
  const Rect both = a.intersection(b);
  return both.width > shared && both.height > shared;
}

class PageCheck {
 public:
  PageCheck(headless::HeadlessHost& host, Problems& problems)
      : controls_(host.editor().controls()),
        size_(" at " + sizeText(host.window().size())),
        problems_(problems) {}

  void checkPage(const orvane::PageView& page, const std::string& place) {
    std::vector<Laid> sections;
    for (std::size_t i = 0; i < page.page().sections.size(); ++i) {
      const orvane::Section& section = *page.page().sections[i].section;
      const auto view = page.sectionViews().find(section.name);
      if (view == page.sectionViews().end()) continue;
      const std::string here = place + ".sections[" + std::to_string(i) + ']';
      sections.push_back({here, inQuotes(section.name), view->second->frame()});
      checkInside(sections.back(), page.bounds(), "page");
      checkSection(section, view->second->bounds(), here);
    }
    checkOverlaps(sections);
  }

  void checkFoot(const orvane::SettingsViewController::FootStack& foot) {
    for (std::size_t i = 0; i < foot.size(); ++i)
      if (foot[i]) checkSize(foot[i]->key(), "foot[" + std::to_string(i) + ']');
  }

 private:
  void checkSection(const orvane::Section& section, const Rect& bounds, const std::string& place) {
    if (section.stateParameter) checkSize(*section.stateParameter, place + ".state");
    if (section.feedbackParameter) checkSize(*section.feedbackParameter, place + ".feedback");
    std::vector<Laid> slots;
    for (std::size_t c = 0; c < section.stack.size(); ++c) {
      const auto& params = section.stack[c].params;
      for (std::size_t s = 0; s < params.size(); ++s) {
        const std::string here =
            place + ".columns[" + std::to_string(c) + "].slots[" + std::to_string(s) + ']';
        const Container* container = shown(params[s].param);
        if (!container) continue;
        slots.push_back({here, inQuotes(params[s].param), container->frame()});
        checkInside(slots.back(), bounds, "section");
        // The siblings lie in the same rectangle.
        checkSize(params[s].param, here);
      }
    }
    checkOverlaps(slots);
  }

  void checkSize(const std::string& key, const std::string& place) {
    Container* container = shown(key);
    if (!container || isDisplay(*container)) return;
    const Rect& frame = valuePart(*container).frame();
    if (frame.width < smallest || frame.height < smallest)
      add(place, inQuotes(key) + " is too small to use: " + lengthText(frame.width) + " by " +
                     lengthText(frame.height) + " points");
  }

  void checkInside(const Laid& laid, const Rect& bounds, const std::string& what) {
    if (!bounds.inset(-shared, -shared).contains(laid.frame))
      add(laid.place, laid.name + " is outside its " + what);
  }

  void checkOverlaps(const std::vector<Laid>& all) {
    for (std::size_t i = 0; i < all.size(); ++i)
      for (std::size_t k = 0; k < i; ++k)
        if (overlap(all[i].frame, all[k].frame))
          add(all[i].place, all[i].name + " covers " + all[k].name + " of " + all[k].place);
  }

  /// Shows a value and is not touched.
  static bool isDisplay(const Container& container) {
    return dynamic_cast<const kestroui::LEDViewContainer*>(&container) ||
           dynamic_cast<const kestroui::SimpleLabelContainer*>(&container);
  }

  Container* shown(const std::string& key) const {
    if (!controls_.allParamKeys().contains(key)) return nullptr;
    Container* container = controls_.container(key).get();
    return container && container->isShown() ? container : nullptr;
  }

  static std::string lengthText(double length) { return numberText(std::round(length * 10) / 10); }

  void add(const std::string& place, const std::string& text) {
    problems_.push_back({place, text + size_});
  }

  const orvane::ControlCollection& controls_;
  std::string size_;
  Problems& problems_;
};

}  // namespace

void checkLayout(headless::HeadlessHost& host, Problems& problems) {
  auto& content = host.editor().settingsViewController();
  PageCheck check(host, problems);
  for (std::size_t i = 0; i < content.pageViews().size(); ++i) {
    content.setCurrentPage(static_cast<int>(i));
    host.loop().runDue();
    check.checkPage(*content.pageViews()[i], "pages[" + std::to_string(i) + ']');
  }
  if (content.foot_stack) check.checkFoot(*content.foot_stack);
}

void checkUse(headless::HeadlessHost& host, Problems& problems) {
  const auto* unit = host.editor().audioUnit();
  if (!unit) return;
  std::set<std::string> used;
  for (const auto& [key, container] : host.editor().controls().controls())
    // Pages adopt their controls when they are first shown.
    if (container->superview())
      for (const auto& driven : container->paramKeys()) {
        used.insert(driven->key());
        used.insert(orvane::ControlBuilder::parameterKey(*container, driven->key()));
      }
  const auto& keys = unit->parametersKeys();
  for (std::size_t i = 0; i < keys.size(); ++i)
    if (!used.contains(keys[i]))
      problems.push_back({"parameters[" + std::to_string(i) + ']',
                          inQuotes(keys[i]) + " has no control on any page"});
}

}  // namespace tool

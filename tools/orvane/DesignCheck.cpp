#include "tools/orvane/DesignCheck.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/ValueContainers.h"
#include "Orvane/ControlBuilder.h"
#include "tools/orvane/Target.h"
#include "tools/orvane/Text.h"

namespace tool {

using orvane::UIColumn;
using orvane::UIParameter;
using orvane::UISection;

namespace {

std::string at(const std::string& place, std::string_view list, std::size_t index) {
  return place + (place.empty() ? "" : ".") + std::string(list) + '[' + std::to_string(index) + ']';
}

}  // namespace

DesignCheck::DesignCheck(Problems& problems, KeyProblem keyProblem,
                         const std::vector<std::optional<std::string>>& foot)
    : problems_(problems), keyProblem_(std::move(keyProblem)), foot_(foot) {}

void DesignCheck::check(const std::vector<DescribedPage>& pages) {
  places_.clear();
  checkFoot();
  const auto footPlaces = places_;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    // The foot strip is shown with every page; a control of another page moves to the one shown.
    places_ = footPlaces;
    checkPage(pages[i], at("", "pages", i));
  }
}

void DesignCheck::checkFoot() {
  for (std::size_t i = 0; i < foot_.size(); ++i)
    if (foot_[i] && checkKey(*foot_[i], at("", "foot", i))) takePlace(*foot_[i], at("", "foot", i));
}

void DesignCheck::checkPage(const DescribedPage& page, const std::string& place) {
  std::map<std::string, std::string> names;
  for (std::size_t i = 0; i < page.sections.size(); ++i) {
    const std::string here = at(place, "sections", i);
    const orvane::Section& section = *page.sections[i].section;
    if (const auto [first, isNew] = names.emplace(section.name, here); !isNew)
      add(here + ".name", inQuotes(section.name) + " is the name of " + first->second +
                              " already, and a page shows only one section of each name");
    checkSection(section, here);
  }
  checkRows(page, place);
}

void DesignCheck::checkRows(const DescribedPage& page, const std::string& place) {
  std::int64_t row = 0, inRow = 0;
  for (std::size_t i = 0; i < page.sections.size(); ++i) {
    const UISection& section = page.sections[i];
    const std::string here = at(place, "sections", i);
    if (section.rowIndex != row) {
      if (i == 0)
        add(here + ".row",
            "must be 0 for the first section, not " + std::to_string(section.rowIndex));
      else if (section.columnOffset < 0 || section.columnOffset >= inRow)
        add(here + ".columnOffset", "must name a section of the row above, which has " +
                                        std::to_string(inRow) + ", counted from 0, not " +
                                        std::to_string(section.columnOffset));
      row = section.rowIndex;
      inRow = 0;
    }
    ++inRow;
  }
}

void DesignCheck::checkSection(const orvane::Section& section, const std::string& place) {
  if (section.stateParameter) checkKey(*section.stateParameter, place + ".state");
  if (section.feedbackParameter) checkKey(*section.feedbackParameter, place + ".feedback");
  for (std::size_t i = 0; i < section.stack.size(); ++i)
    checkColumn(section.stack[i], at(place, "columns", i));
  // The height of a slot is its share of the highest column's weights.
  const bool isEmpty = std::all_of(section.stack.begin(), section.stack.end(),
                                   [](const UIColumn& column) { return column.params.empty(); });
  if (isEmpty && !section.stack.empty()) add(place + ".columns", "must hold a slot");
}

void DesignCheck::checkColumn(const UIColumn& column, const std::string& place) {
  double bottom = 0;
  for (std::size_t i = 0; i < column.params.size(); ++i) {
    const UIParameter& slot = column.params[i];
    const std::string here = at(place, "slots", i);
    if (checkKey(slot.param, here + ".param")) takePlace(slot.param, here + ".param");
    for (std::size_t k = 0; k < slot.siblings.size(); ++k) {
      const std::string sibling = at(here, "siblings", k);
      if (slot.siblings[k] && checkKey(*slot.siblings[k], sibling))
        takePlace(*slot.siblings[k], sibling);
    }
    if (bottom + slot.verticalOffsetInColumn < 0)
      add(here + ".offset", "moves the slot above its section");
    bottom += slot.verticalWeightInColumn + slot.verticalOffsetInColumn;
  }
}

bool DesignCheck::checkKey(const std::string& key, const std::string& place) {
  std::string problem = keyProblem_(key);
  if (problem.empty()) return true;
  // A key that is empty for want of a text has been told of already.
  if (!key.empty()) add(place, std::move(problem));
  return false;
}

void DesignCheck::takePlace(const std::string& key, const std::string& place) {
  if (const auto [first, isNew] = places_.emplace(key, place); !isNew)
    add(place, inQuotes(key) + " has its place in " + first->second +
                   " already, and a control is in one place at a time");
}

void DesignCheck::add(const std::string& place, std::string text) {
  problems_.push_back({place, std::move(text)});
}

// What the layout shows

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

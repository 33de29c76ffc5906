#include "tools/orvane/DesignCheck.h"

#include <algorithm>
#include <cstdint>
#include <utility>

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

}  // namespace tool

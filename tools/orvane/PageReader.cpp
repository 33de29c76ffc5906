#include "tools/orvane/PageReader.h"

#include <memory>
#include <utility>

#include "KestroUI/Theme.h"

namespace tool {

using orvane::UIColumn;
using orvane::UIParameter;
using orvane::UISection;

namespace {

/// A list that must be there and hold something.
void requireEntries(ObjectReader& reader, std::string_view member, const std::string& what) {
  const auto* list = reader.require(member);
  if (list && list->is_array() && list->empty()) reader.problem(member, "must hold a " + what);
}

}  // namespace

std::vector<DescribedPage> PageReader::read(ObjectReader& plugin) {
  std::vector<DescribedPage> pages;
  requireEntries(plugin, "pages", "page");
  plugin.list("pages", [&](const Json& page, std::size_t i) {
    pages.push_back(readPage(page, plugin.place("pages", i)));
  });
  return pages;
}

DescribedPage PageReader::readPage(const Json& value, const std::string& place) {
  ObjectReader reader(problems_, value, place);
  DescribedPage page;
  page.title = reader.text("title", "");
  requireEntries(reader, "sections", "section");
  reader.list("sections", [&](const Json& section, std::size_t i) {
    page.sections.push_back(readSection(section, reader.place("sections", i)));
  });
  reader.finish();
  return page;
}

UISection PageReader::readSection(const Json& value, const std::string& place) {
  constexpr double maxRows = 1e6;
  ObjectReader reader(problems_, value, place);
  const std::string name = reader.text("name", "");
  const platform::Color color = reader.color("color").value_or(kestroui::Theme::accent);
  const auto row = reader.whole("row", 0, {-maxRows, maxRows});
  const double width = reader.weight("horizontalWeight", 1);
  const double height = reader.weight("verticalWeight", 1);
  const auto offset = reader.whole("columnOffset", 0, {-maxRows, maxRows});
  const bool fill = reader.boolean("fillNameSpace", false);
  const bool gradient = reader.boolean("displayGradient", true);
  const auto state = reader.optionalText("state");
  const auto feedback = reader.optionalText("feedback");
  std::vector<UIColumn> columns;
  reader.list("columns", [&](const Json& column, std::size_t i) {
    columns.push_back(readColumn(column, reader.place("columns", i)));
  });
  reader.finish();
  return UISection(std::make_shared<orvane::Section>(std::move(columns), name, color, state,
                                                     feedback, fill, gradient),
                   width, row, height, offset);
}

UIColumn PageReader::readColumn(const Json& value, const std::string& place) {
  ObjectReader reader(problems_, value, place);
  UIColumn column;
  column.horizontalWeightInSection = reader.weight("weight", 1);
  reader.list("slots", [&](const Json& slot, std::size_t i) {
    column.params.push_back(readSlot(slot, reader.place("slots", i)));
  });
  reader.finish();
  return column;
}

UIParameter PageReader::readSlot(const Json& value, const std::string& place) {
  constexpr double farthest = 1e6;
  ObjectReader reader(problems_, value, place);
  UIParameter slot;
  slot.param = reader.requiredText("param");
  slot.verticalWeightInColumn = reader.weight("weight", 1);
  slot.verticalOffsetInColumn = reader.number("offset", 0, {-farthest, farthest});
  slot.widthRatio = reader.weight("widthRatio", 1);
  slot.siblings = reader.optionalTexts("siblings");
  reader.finish();
  return slot;
}

}  // namespace tool

#include "Orvane/PresetTableStyle.h"

#include <algorithm>

#include "KestroUI/Theme.h"

namespace orvane {

namespace Theme = kestroui::Theme;

double PresetTableStyle::rowHeight(double tableHeight) {
  return std::max(tableHeight / 8, Theme::cellFont.lineHeight());
}

double PresetTableStyle::headerHeight(double tableHeight) { return 0.8 * rowHeight(tableHeight); }

platform::Font PresetTableStyle::font(double rowHeight) {
  return Theme::cellFont.withSize(std::clamp(rowHeight * 0.34, 11.0, 30.0));
}

void PresetTableStyle::apply(toolkit::TableView& table) {
  table.setBackgroundColor(Theme::panel);
  table.setBarColor(Theme::grey.withAlpha(0.5f));
}

void PresetTableStyle::apply(toolkit::TableViewCell& cell) {
  cell.textLabel().setFont(Theme::cellFont);
  cell.textLabel().setTextColor(Theme::text);
  // Rows whose texts are of several sizes are hard to read down.
  cell.textLabel().setMinimumScale(0.85);
  cell.setTextInset(14);
  cell.setColors({.background = platform::Color::clear(),
                  .selected = Theme::accent.withAlpha(0.26f),
                  .pressed = Theme::accent.withAlpha(0.14f),
                  .marked = Theme::accent.withAlpha(0.4f),
                  .focused = Theme::accent.withAlpha(0.7f)});
}

}  // namespace orvane

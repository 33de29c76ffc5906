#pragma once

#include "platform/Font.h"
#include "toolkit/TableView.h"

namespace orvane {

/// What the browser's two lists have in common.
namespace PresetTableStyle {

/// In points: eight rows fill the table, but none is lower than its line of text.
double rowHeight(const toolkit::TableView& table);
/// In points.
double headerHeight(const toolkit::TableView& table);
/// Grows with the rows, as far as that reads well.
platform::Font font(double rowHeight);
void apply(toolkit::TableView& table);
void apply(toolkit::TableViewCell& cell);

}  // namespace PresetTableStyle

}  // namespace orvane

#pragma once

#include "platform/Font.h"
#include "toolkit/TableView.h"

namespace orvane {

/// What the browser's two lists have in common.
namespace PresetTableStyle {

/// In points: eight rows fill a table of this height, but none is lower than its line of text.
double rowHeight(double tableHeight);
/// In points.
double headerHeight(double tableHeight);
/// Grows with the rows, as far as that reads well.
platform::Font font(double rowHeight);
void apply(toolkit::TableView& table);
void apply(toolkit::TableViewCell& cell);

}  // namespace PresetTableStyle

}  // namespace orvane

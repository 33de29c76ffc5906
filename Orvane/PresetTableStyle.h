#pragma once

#include "platform/Font.h"
#include "platform/TableView.h"

namespace orvane {

/// What the browser's two lists have in common.
namespace PresetTableStyle {

/// In points: eight rows fill the table, but none is lower than its line of text.
double rowHeight(const platform::TableView& table);
/// In points.
double headerHeight(const platform::TableView& table);
/// Grows with the rows, as far as that reads well.
platform::Font font(double rowHeight);
void apply(platform::TableView& table);
void apply(platform::TableViewCell& cell);

}  // namespace PresetTableStyle

}  // namespace orvane

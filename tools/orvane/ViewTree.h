#pragma once

#include <functional>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "toolkit/View.h"

namespace tool {

/// The view's class without its namespace.
std::string className(const toolkit::View& view);
/// What a label, button or text field shows; none for any other view, or for a button without a
/// title.
std::optional<std::string> textOf(const toolkit::View& view);
/// The view and everything below it, hidden views included.
nlohmann::ordered_json viewTree(const toolkit::View& view);
/// Calls `visit` for every view that is shown, in drawing order.
void visitShown(toolkit::View& view, const std::function<void(toolkit::View&)>& visit);

enum class Layout { oneLine, indented };

/// The text of a JSON value; bytes that are no UTF-8 are replaced.
std::string dump(const nlohmann::ordered_json& value, Layout layout);

}  // namespace tool

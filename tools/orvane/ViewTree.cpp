#include "tools/orvane/ViewTree.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <typeinfo>

#include "KestroUI/Container.h"
#include "KestroUI/Indicators.h"
#include "KestroUI/Switches.h"
#include "Orvane/PageView.h"
#include "Orvane/SectionView.h"
#include "toolkit/Button.h"
#include "toolkit/Label.h"
#include "toolkit/TableViewCell.h"
#include "toolkit/TextField.h"
#include "tools/orvane/Text.h"

namespace tool {

using nlohmann::ordered_json;
using toolkit::View;

std::string className(const View& view) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> readable(
      abi::__cxa_demangle(typeid(view).name(), nullptr, nullptr, &status), std::free);
  std::string name = status == 0 ? readable.get() : typeid(view).name();
  name.erase(std::min(name.find('<'), name.size()));
  const std::size_t colons = name.rfind("::");
  return colons == std::string::npos ? name : name.substr(colons + 2);
}

std::optional<std::string> textOf(const View& view) {
  if (const auto* label = dynamic_cast<const toolkit::Label*>(&view)) return label->text();
  if (const auto* label = dynamic_cast<const kestroui::SimpleLabel*>(&view)) return label->text();
  if (const auto* field = dynamic_cast<const toolkit::TextField*>(&view)) return field->text();
  std::string title;
  if (const auto* button = dynamic_cast<const toolkit::Button*>(&view))
    title = button->title();
  else if (const auto* momentary = dynamic_cast<const kestroui::MomentaryButton*>(&view))
    title = momentary->title();
  else if (const auto* onOff = dynamic_cast<const kestroui::OnOffButton*>(&view);
           onOff && !onOff->titles().empty())
    title = onOff->isOn() ? onOff->titles().back() : onOff->titles().front();
  return title.empty() ? std::nullopt : std::optional(title);
}

ordered_json viewTree(const View& view) {
  ordered_json node;
  node["class"] = className(view);
  if (const auto* section = dynamic_cast<const orvane::SectionView*>(&view))
    node["name"] = section->section().name;
  else if (const auto* page = dynamic_cast<const orvane::PageView*>(&view))
    node["name"] = page->title();
  if (const auto* container = dynamic_cast<const kestroui::Container*>(&view))
    if (const auto key = container->key()) node["key"] = key->key();
  if (const auto text = textOf(view)) node["text"] = *text;
  if (const auto* field = dynamic_cast<const toolkit::TextField*>(&view);
      field && !field->placeholder().empty())
    node["placeholder"] = field->placeholder();
  const platform::Rect& frame = view.frame();
  node["frame"] = {tidy(frame.x), tidy(frame.y), tidy(frame.width), tidy(frame.height)};
  node["hidden"] = view.isHidden();
  if (const auto* control = dynamic_cast<const toolkit::Control*>(&view)) {
    node["enabled"] = control->isEnabled();
    const auto* onOff = dynamic_cast<const kestroui::OnOffButton*>(control);
    node["selected"] = control->isSelected() || (onOff && onOff->isOn());
  }
  if (const auto* row = dynamic_cast<const toolkit::TableViewCell*>(&view))
    node["selected"] = row->isSelected();
  node["children"] = ordered_json::array();
  for (const View* child : view.subviews()) node["children"].push_back(viewTree(*child));
  return node;
}

std::string dump(const ordered_json& value, Layout layout) {
  return value.dump(layout == Layout::indented ? 2 : -1, ' ', false,
                    ordered_json::error_handler_t::replace);
}

void visitShown(View& view, const std::function<void(View&)>& visit) {
  if (view.isHidden()) return;
  visit(view);
  for (View* child : view.subviews()) visitShown(*child, visit);
}

}  // namespace tool

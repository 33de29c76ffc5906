#include "tools/orvane/Editor.h"

#include "Quillon/CommonAudioUnit.h"
#include "tools/orvane/Problems.h"

namespace tool {

Editor::Editor(const Plugin& plugin, std::optional<platform::Size> size, std::optional<int> page)
    : host(loop, plugin.entry) {
  if (auto* unit = dynamic_cast<quillon::CommonAudioUnit*>(&host.audioUnit()))
    unit->seedRandomize(1);
  if (size) host.resize(*size);
  host.appear();
  if (page) showPage(host, *page, plugin.place);
}

void showPage(headless::HeadlessHost& host, int page, const std::string& place) {
  auto& content = host.editor().settingsViewController();
  const auto count = content.pageViews().size();
  if (page < 0 || static_cast<std::size_t>(page) >= count)
    throw Failure((place.empty() ? "" : place + ": ") + "there is no page " + std::to_string(page) +
                  ": the design has " + std::to_string(count) + (count == 1 ? " page" : " pages") +
                  ", counted from 0");
  content.setCurrentPage(page);
  host.loop().runDue();
}

}  // namespace tool

#include "backends/headless/HeadlessApplication.h"

namespace headless {

bool HeadlessApplication::open(const std::string& url) {
  add({"openURL", {{"url", url}}});
  return true;
}

bool HeadlessApplication::pick(const std::vector<std::string>& paths) {
  const auto picker = std::exchange(picker_, std::nullopt);
  if (!picker) return false;
  if (picker->delegate && !paths.empty()) picker->delegate->documentPickerDidPick(paths);
  return true;
}

std::vector<Event> HeadlessApplication::takeEvents() {
  const std::lock_guard lock(mutex_);
  return std::exchange(events_, {});
}

void HeadlessApplication::present(const platform::DocumentPicker& picker) {
  picker_ = picker;
  add({"picker", {}, picker.types, picker.allowsMultipleSelection});
}

void HeadlessApplication::present(const platform::ActivitySheet& sheet) {
  for (const std::string& path : sheet.paths) add({"share", {{"path", path}}});
}

void HeadlessApplication::present(const platform::Alert& alert) {
  add({"alert", {{"title", alert.title}, {"message", alert.message}}});
}

void HeadlessApplication::add(Event event) {
  const std::lock_guard lock(mutex_);
  events_.push_back(std::move(event));
}

}  // namespace headless

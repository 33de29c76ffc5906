#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Responder.h"

namespace headless {

/// Something that left the editor: a link that it opened, for one.
struct Event {
  /// "openURL".
  std::string type;
  /// Name and text of what the event carries, in a fixed order.
  std::vector<std::pair<std::string, std::string>> members;

  friend bool operator==(const Event&, const Event&) = default;
};

/// The end of the responder chain without a desktop: nothing is opened, everything is recorded.
class HeadlessApplication : public platform::Application {
 public:
  bool open(const std::string& url) override;

  /// In the order in which they happened, since the last call.
  std::vector<Event> takeEvents() { return std::exchange(events_, {}); }
  const std::vector<Event>& events() const { return events_; }

 private:
  std::vector<Event> events_;
};

}  // namespace headless

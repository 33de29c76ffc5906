#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "backends/headless/HeadlessSession.h"
#include "foundation/Console.h"
#include "foundation/SharedURLSession.h"
#include "platform/Presentation.h"
#include "platform/Responder.h"

namespace headless {

/// Something that left the editor: a link that it opened, for one.
struct Event {
  /// "openURL", "alert", "share", "picker", "review", "http" or "console".
  std::string type;
  /// Name and text of what the event carries, in a fixed order.
  std::vector<std::pair<std::string, std::string>> members;
  /// A picker's: the types of the files, and whether several may be picked.
  std::vector<std::string> types{};
  std::optional<bool> multiple{};

  friend bool operator==(const Event&, const Event&) = default;
};

/// The end of the responder chain without a desktop: nothing is opened or sent, everything is
/// recorded. There is a store, and the process's requests end here while it lives.
class HeadlessApplication : public platform::Application, private platform::Presentation {
 public:
  bool open(const std::string& url) override;
  bool canRequestReview() const override { return true; }
  void requestReview() override { add({"review", {}}); }
  platform::Presentation* presentation() override { return this; }
  /// Answers the requests that editors send.
  HeadlessSession& session() { return session_; }

  /// The user's choice in the picker that was shown last; false when none is open.
  bool pick(const std::vector<std::string>& paths);

  /// In the order in which they happened, since the last call.
  std::vector<Event> takeEvents();

 private:
  void present(const platform::DocumentPicker& picker) override;
  void present(const platform::ActivitySheet& sheet) override;
  void present(const platform::Alert& alert) override;
  void add(Event event);

  /// The console is written to on any thread.
  std::mutex mutex_;
  std::vector<Event> events_;
  std::optional<platform::DocumentPicker> picker_;
  foundation::ConsoleListener console_{[this](const std::string& line) {
    add({"console", {{"line", line}}});
  }};
  HeadlessSession session_{[this](const std::string& url) { add({"http", {{"url", url}}}); }};
  foundation::SharedURLSession shared_{session_};
};

}  // namespace headless

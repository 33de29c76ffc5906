#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/URLSession.h"

namespace headless {

/// A network on which nothing is sent: every request is told and then waits for the answer that a
/// script or a test gives.
class HeadlessSession : public platform::URLSession {
 public:
  /// `requested` is called with the address of each request that is sent.
  explicit HeadlessSession(std::function<void(const std::string& url)> requested)
      : requested_(std::move(requested)) {}

  std::unique_ptr<platform::URLSessionDataTask> dataTask(const std::string& url,
                                                         Completion completion) override;

  /// Answers the request that has waited longest, on a thread of its own; false when none waits.
  bool respond(Answer answer);

 private:
  struct Request {
    std::string url;
    Completion completion;
  };
  class Task;

  std::function<void(const std::string& url)> requested_;
  /// Those whose task is gone are cancelled.
  std::vector<std::weak_ptr<Request>> waiting_;
};

}  // namespace headless

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/PropertyList.h"

namespace platform {

/// A request to a server. Destroying it cancels it: its completion is not called any more
/// afterwards, and has returned when it was being called.
class URLSessionDataTask {
 public:
  virtual ~URLSessionDataTask() = default;
  /// Sends the request; once.
  virtual void resume() = 0;
};

/// Asks servers for data by "http" and "https". User-interface thread, but for what is said
/// otherwise.
class URLSession {
 public:
  struct Answer {
    /// Why there is no answer, in one line; empty when a server has answered.
    std::string error{};
    /// Of the server: 200 for what was asked for, 404 for what it does not have.
    int statusCode = 0;
    PropertyList::Data data{};
  };
  /// Called once, on a thread of the session. It must not destroy its task.
  using Completion = std::function<void(Answer answer)>;

  virtual ~URLSession() = default;

  virtual std::unique_ptr<URLSessionDataTask> dataTask(const std::string& url,
                                                       Completion completion) = 0;
};

}  // namespace platform

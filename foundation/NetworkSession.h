#pragma once

#include "platform/URLSession.h"

namespace foundation {

/// Asks real servers. Every task has a thread of its own, which ends before the task is destroyed:
/// nothing is left behind when an editor closes or its plug-in is unloaded.
class NetworkSession : public platform::URLSession {
 public:
  struct Limits {
    /// Seconds until the answer must be there whole.
    double whole = 30;
    /// Bytes; a longer answer is an error.
    std::size_t answer = std::size_t{1} << 20;
  };

  NetworkSession() : NetworkSession(Limits{}) {}
  explicit NetworkSession(const Limits& limits) : limits_(limits) {}

  std::unique_ptr<platform::URLSessionDataTask> dataTask(const std::string& url,
                                                         Completion completion) override;

 private:
  Limits limits_;
};

}  // namespace foundation

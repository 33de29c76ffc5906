#pragma once

#include <csignal>

namespace juce_backend {

/// While it lives, SIGTERM and SIGHUP end the program as closing its window does, so that what is kept
/// at the end is kept: a session that ends and a terminal that closes send them. One at a time, on the
/// message thread.
class QuitOnSignal {
 public:
  QuitOnSignal();
  ~QuitOnSignal();
  QuitOnSignal(const QuitOnSignal&) = delete;
  QuitOnSignal& operator=(const QuitOnSignal&) = delete;

 private:
  static constexpr int signals[] = {SIGTERM, SIGHUP};

  struct sigaction before_[2]{};
};

}  // namespace juce_backend

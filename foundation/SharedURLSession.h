#pragma once

#include "platform/URLSession.h"

namespace foundation {

/// Makes a session the process's shared one as long as it lives, or until a later one takes its
/// place. User-interface thread.
class SharedURLSession {
 public:
  /// `session` outlives it.
  explicit SharedURLSession(platform::URLSession& session);
  ~SharedURLSession();
  SharedURLSession(const SharedURLSession&) = delete;
  SharedURLSession& operator=(const SharedURLSession&) = delete;

  /// The process's session: that of the last SharedURLSession, or else one that asks real servers.
  static platform::URLSession& current();

 private:
  platform::URLSession& session_;
};

}  // namespace foundation

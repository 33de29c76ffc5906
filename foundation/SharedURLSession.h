#pragma once

#include "foundation/Override.h"
#include "platform/URLSession.h"

namespace foundation {

/// Makes a session the process's shared one as long as it lives, or until a later one takes its
/// place. User-interface thread.
class SharedURLSession {
 public:
  /// `session` outlives it.
  explicit SharedURLSession(platform::URLSession& session) : given_(&session) {}

  /// The process's session: that of the last SharedURLSession, or else one that asks real servers.
  static platform::URLSession& current();

 private:
  Override<platform::URLSession*> given_;
};

}  // namespace foundation

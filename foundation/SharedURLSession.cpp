#include "foundation/SharedURLSession.h"

#include "foundation/NetworkSession.h"

namespace foundation {

using platform::URLSession;

URLSession& SharedURLSession::current() {
  static NetworkSession real;
  return *Override<URLSession*>::with(
      [](URLSession* const* session) -> URLSession* { return session ? *session : &real; });
}

}  // namespace foundation

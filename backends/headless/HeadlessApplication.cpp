#include "backends/headless/HeadlessApplication.h"

namespace headless {

bool HeadlessApplication::open(const std::string& url) {
  events_.push_back({"openURL", {{"url", url}}});
  return true;
}

}  // namespace headless

#include "Orvane/ResponderView.h"

#include "Orvane/WebAddress.h"

namespace orvane {

void ResponderView::open(const std::string& url) {
  auto* owner = delegate.get();
  if (owner && WebAddress::isURL(url)) owner->openURL(url);
}

}  // namespace orvane

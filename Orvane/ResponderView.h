#pragma once

#include <string>

#include "Orvane/ResponderViewDelegate.h"
#include "toolkit/View.h"

namespace orvane {

/// Base of the views that have links. They open none by themselves: a plug-in inside a host has to
/// leave that to the program around it. User-interface thread only.
class ResponderView : public toolkit::View {
 public:
  platform::Weak<ResponderViewDelegate> delegate;

 protected:
  /// Has the delegate open a link; a text that is no URL is ignored.
  void open(const std::string& url);
};

}  // namespace orvane

#pragma once

#include <string>

#include "toolkit/View.h"

namespace orvane {

/// Opens links for views. Held weakly. User-interface thread only.
class ResponderViewDelegate {
 public:
  virtual ~ResponderViewDelegate() = default;

  /// Opens a link outside the editor.
  virtual void openURL(const std::string& url) = 0;
};

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

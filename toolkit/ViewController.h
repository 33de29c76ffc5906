#pragma once

#include <vector>

#include "toolkit/View.h"

namespace toolkit {

/// Looks after one view and its life on screen. Its view is made with it and loaded (viewDidLoad)
/// the first time that it is asked for. Children are linked, not owned. User-interface thread
/// only.
class ViewController : public platform::Responder {
 public:
  ViewController();
  ~ViewController() override;
  ViewController(const ViewController&) = delete;
  ViewController& operator=(const ViewController&) = delete;

  /// The controller's view; the first call runs viewDidLoad.
  View& view();
  bool isViewLoaded() const { return loaded_; }

  /// Links a child; its view is not added. A child that has another parent leaves it first.
  void addChild(ViewController& child);
  /// willMove(nullptr), then unlinks; its view stays where it is.
  void removeFromParent();
  ViewController* parent() const { return parent_; }
  const std::vector<ViewController*>& children() const { return children_; }
  /// The superview of the view.
  platform::Responder* nextResponder() const override;

  /// Called by whoever shows and hides the editor; passed on to every child.
  void appear();
  void disappear();

  // Overridables; an override calls its base class first.

  virtual void viewDidLoad() {}
  virtual void viewWillLayoutSubviews() {}
  virtual void viewDidLayoutSubviews() {}
  virtual void viewDidAppear() {}
  virtual void viewDidDisappear() {}
  virtual void willMoveToParent(ViewController*) {}

 private:
  friend class View;
  ViewController* parent_ = nullptr;
  std::vector<ViewController*> children_;
  View view_;
  bool loaded_ = false;
};

}  // namespace toolkit

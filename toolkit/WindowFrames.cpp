#include <utility>

#include "toolkit/Window.h"

namespace toolkit {

using platform::Canvas;
using platform::Point;
using platform::Rect;
using platform::Size;
using platform::Weak;

namespace {

/// Calls `visit` for the subviews of `view`, which may come, go and change places meanwhile: all
/// that are there at the end have been visited, some perhaps twice.
template <class Visit>
void visitSubviews(View& view, Visit visit) {
  const Weak<View> self = &view;
  for (std::size_t i = 0; self && i < view.subviews().size();) {
    View* const subview = view.subviews()[i];
    visit(*subview);
    if (self && i < view.subviews().size() && view.subviews()[i] == subview) ++i;
  }
}

}  // namespace

std::vector<Rect> Window::prepareFrame() {
  if (preparing_) return {};
  const Weak<Window> self = this;
  releaseLost();
  if (!self || !needsFrame_) return {};

  preparing_ = true;
  ++frameNumber_;
  if (rootView_) layoutPass(*rootView_);
  if (rootView_) displayPass(*rootView_);
  if (rootView_ && rootView_->needs_) damagePass(*rootView_, {}, rootView_->bounds());
  preparing_ = false;

  // What was asked for during the passes, too late for this frame.
  needsFrame_ = false;
  if (rootView_ && rootView_->concernsFrame()) wantFrame();
  std::vector<Rect> damage = damage_.take();
  // Whoever is touched keeps the mouse's attention until it is released.
  if (!damage.empty() && touches_.empty()) refreshHover();
  return damage;
}

void Window::layoutIfNeeded(View& view) {
  if (!(view.needs_ & View::Need::layout) || view.laidOutIn_ == frameNumber_) return;
  view.laidOutIn_ = frameNumber_;
  view.needs_ &= ~static_cast<unsigned>(View::Need::layout);
  const Weak<View> self = &view;
  const Weak<ViewController> controller = view.controller_;
  if (controller) controller->viewWillLayoutSubviews();
  if (self) view.layoutSubviews();
  if (controller) controller->viewDidLayoutSubviews();
}

void Window::layoutPass(View& view) {
  if (view.hidden_) return;
  const Weak<View> self = &view;
  layoutIfNeeded(view);
  if (!self || !(view.needs_ & View::Need::below)) return;
  // Its draw is going to place what is below, which is laid out after that, at its new size.
  if (view.needs_ & View::Need::display) return;
  visitSubviews(view, [this](View& subview) {
    if (subview.concernsFrame()) layoutPass(subview);
  });
}

void Window::displayPass(View& view) {
  if (view.hidden_) return;
  const Weak<View> self = &view;
  layoutIfNeeded(view);
  if (!self || !shows(view)) return;

  using Need = View::Need;
  if ((view.needs_ & (Need::display | Need::paint)) && view.displayedIn_ != frameNumber_) {
    view.displayedIn_ = frameNumber_;
    if (view.needs_ & Need::display) {
      view.needs_ = (view.needs_ & ~static_cast<unsigned>(Need::display)) | Need::paint;
      const Size size = view.frame_.size();
      view.draw(view.bounds());
      if (!self) return;
      // What a view asks of itself while it draws is answered by the paint that follows.
      if (view.frame_.size() == size) view.needs_ &= ~static_cast<unsigned>(Need::display);
      if (!shows(view)) return;
    }
    record(view);
    if (!self) return;
  }
  if (view.needs_ & Need::below) {
    visitSubviews(view, [this](View& subview) {
      if (subview.concernsFrame()) displayPass(subview);
    });
  }
}

void Window::record(View& view) {
  view.needs_ &= ~static_cast<unsigned>(View::Need::paint);
  recorder_.begin(view.frame_.size());
  if (!view.bounds().isEmpty()) {
    const Weak<View> self = &view;
    ++paintedViews_;
    view.layer_.render(recorder_);
    view.paint(recorder_);
    if (!self) return;
  }
  const DisplayList& list = recorder_.finish();
  if (!view.recording_) {
    if (list.isEmpty()) return;
    view.recording_ = std::make_shared<DisplayList>();
  } else if (*view.recording_ == list) {
    return;
  }
  view.recording_->assign(list);
  view.markNeeds(View::Need::content);
}

void Window::damagePass(View& view, Point origin, const Rect& clip) {
  using Need = View::Need;
  if (view.needs_ & Need::place) {
    const Rect before = view.composited_.tree;
    placeAgain(view, origin, clip);
    damage(before);
    damage(view.composited_.tree);
    return;
  }
  if (view.hidden_) return;

  View::Composited& c = view.composited_;
  if (view.needs_ & Need::content) {
    const Rect& covered = view.recording_->bounds();
    const Rect area = covered.translated(c.origin.x, c.origin.y).intersection(clip);
    damage(c.area);
    damage(area);
    c.area = area;
  }
  if (view.needs_ & (Need::content | Need::below)) {
    const Rect clipBelow = c.clips ? clip.intersection(c.clip) : clip;
    bool below = false;
    c.tree = c.area;
    for (View* subview : view.subviews_) {
      if (subview->concernsFrame()) damagePass(*subview, c.origin, clipBelow);
      below = below || subview->concernsFrame();
      c.tree = c.tree.unionWith(subview->composited_.tree);
    }
    view.needs_ &= ~static_cast<unsigned>(Need::content | Need::below);
    if (below) view.needs_ |= Need::below;
  }
}

void Window::placeAgain(View& view, Point origin, const Rect& clip) {
  using Need = View::Need;
  view.needs_ &= ~static_cast<unsigned>(Need::place);
  View::Composited& c = view.composited_;
  c.clips = view.clipsToBounds_;
  c.origin = origin + view.frame_.origin();
  c.clip = view.bounds().translated(c.origin.x, c.origin.y);
  c.area = c.tree = {};
  if (view.hidden_) return;

  view.needs_ &= ~static_cast<unsigned>(Need::content | Need::below);
  if (view.recording_)
    c.area = view.recording_->bounds().translated(c.origin.x, c.origin.y).intersection(clip);
  c.tree = c.area;
  const Rect clipBelow = c.clips ? clip.intersection(c.clip) : clip;
  for (View* subview : view.subviews_) {
    placeAgain(*subview, c.origin, clipBelow);
    if (subview->concernsFrame()) view.needs_ |= Need::below;
    c.tree = c.tree.unionWith(subview->composited_.tree);
  }
}

void Window::composite(Canvas& canvas, const Rect& area) {
  if (rootView_) compositeView(*rootView_, canvas, area);
}

void Window::compositeView(View& view, Canvas& canvas, const Rect& area) {
  const View::Composited& c = view.composited_;
  if (!c.tree.intersects(area) || !canvas.intersectsClip(c.tree)) return;

  if (c.clips) {
    canvas.save();
    canvas.clip(c.clip);
  }
  if (c.area.intersects(area) && canvas.intersectsClip(c.area)) {
    const DisplayList& list = *view.recording_;
    canvas.save();
    if (list.exceedsSize() && !c.clips) canvas.clip(c.clip);
    if (c.origin != Point{}) canvas.place({c.origin});
    list.replay(canvas);
    canvas.restore();
  }
  for (View* subview : view.subviews_) compositeView(*subview, canvas, area);
  if (c.clips) canvas.restore();
}

}  // namespace toolkit

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ViewController.h"

namespace platform {

/// The meeting place of a view tree and the backend that shows it: it runs the passes of a frame
/// and hands input to the tree. A backend owns it and its root controller. User-interface thread
/// only. Implemented in toolkit/.
class Window : public Responder {
 public:
  /// What a window asks of its backend.
  class Client {
   public:
    virtual ~Client() = default;
    /// Something has asked for a frame: call prepareFrame soon, once for any number of calls.
    virtual void frameWanted() = 0;
    /// The end of the responder chain; null when there is none.
    virtual Application* application() = 0;
    /// What Canvas::textWidth answers while views paint. At first a guess that needs no fonts:
    /// 0.55 of the font's size for every code point.
    virtual double textWidth(std::string_view text, const Font& font);
    /// The time stamp of touches: seconds on the run loop's clock. At first a clock that never
    /// goes back.
    virtual double now() const;
    /// The text that other programs have cut or copied; at first there is no clipboard.
    virtual std::string clipboardText() { return {}; }
    virtual void setClipboardText(const std::string& /*text*/) {}
  };

  /// `client` outlives the window.
  explicit Window(Client& client);
  ~Window() override;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  /// The host's controller: the editor's controller is its child. Null takes the tree out.
  void setRootViewController(ViewController* controller);
  ViewController* rootViewController() const { return root_.get(); }
  /// The size of the root view in points; negative counts as 0.
  void setSize(const Size& size);
  Size size() const { return size_; }
  Responder* nextResponder() const override;
  /// What Canvas::textWidth answers while views paint, in points.
  double textWidth(std::string_view text, const Font& font) const {
    return client_.textWidth(text, font);
  }
  std::string clipboardText() const { return client_.clipboardText(); }
  void setClipboardText(const std::string& text) { client_.setClipboardText(text); }

  // Frames

  bool needsFrame() const { return needsFrame_; }
  /// Lays out, draws and records everything visible that asked, and returns what has to be
  /// composited, in root coordinates; empty when nothing changed.
  std::vector<Rect> prepareFrame();
  /// Paints all that meets `area` from the recordings, on a canvas in root coordinates that the
  /// caller has clipped. Between two prepareFrame calls it may run any number of times
  /// and always paints the same.
  void composite(Canvas& canvas, const Rect& area);
  /// Recordings made (views painted) since the window was made, for tests and measurements.
  std::uint64_t paintedViews() const { return paintedViews_; }

  // Input; places are in root coordinates.

  /// `id` is distinct among the touches that are down.
  void touchBegan(int id, Touch::Kind kind, Point location, int tapCount,
                  Modifiers modifiers = Modifiers::none);
  void touchMoved(int id, Point location, Modifiers modifiers = Modifiers::none);
  void touchEnded(int id, Point location, Modifiers modifiers = Modifiers::none);
  void cancelTouches();
  /// The mouse moves without a button; `hoverEnded` when it leaves the window. Where it rests, views
  /// that come and go below it are told with the frame that shows them.
  void hovered(Point location);
  void hoverEnded();
  /// False when nobody used it.
  bool wheelTurned(const WheelEvent& event) override;
  /// To the first responder and on along its chain, else to the root; Tab that nobody used moves
  /// the keyboard to the next control in tree order (with Shift the previous one). False when
  /// nobody used it: the host gets it back.
  bool keyPressed(const KeyEvent& event) override;
  View* firstResponder() const { return firstResponder_.get(); }

 private:
  friend class View;
  struct ActiveTouch {
    Touch touch;
    Weak<View> view;
  };
  struct FrameState;

  void wantFrame();
  void damage(const Rect& area);
  /// The view, still linked, is about to leave the tree.
  void viewLeaves(View& view);
  /// The root view goes; its controller may be half destroyed.
  void rootViewLeaves();
  /// Takes touches, hover and keyboard from views that are not shown here any more and tells them.
  void releaseLost();
  /// The same with the next event or frame, for when nobody can be told now.
  void releaseLostLater();
  bool shows(const View& view) const;

  void layoutIfNeeded(View& view);
  void layoutPass(View& view);
  void displayPass(View& view);
  void record(View& view);
  void damagePass(View& view, Point origin, const Rect& clip);
  void placeAgain(View& view, Point origin, const Rect& clip);
  void compositeView(View& view, Canvas& canvas, const Rect& area);

  ActiveTouch* activeTouch(int id);
  void forgetTouch(int id);
  void setHoverChain(std::vector<Weak<View>> chain);
  /// The tree below the resting mouse has changed.
  void refreshHover();
  bool giveKeyboard(View* view);
  /// To the next (1) or previous (-1) view that can have it.
  bool moveKeyboard(int direction);

  Client& client_;
  Weak<ViewController> root_;
  View* rootView_ = nullptr;
  Size size_;
  bool needsFrame_ = false;
  std::uint64_t paintedViews_ = 0;
  std::unique_ptr<FrameState> frame_;
  std::vector<ActiveTouch> touches_;
  std::vector<Weak<View>> hoverChain_;
  /// Where the mouse rests, while it is over the window.
  std::optional<Point> mouse_;
  Weak<View> firstResponder_;
};

}  // namespace platform

#pragma once

#include <utility>
#include <vector>

#include "platform/Canvas.h"

namespace platform {

class View;

/// A painted rectangle below a view's own painting: background, border, and sublayers. It links to
/// sublayers without owning them, is painted in their order, and repaints its view when changed.
/// No change is animated. User-interface thread only. Implemented in toolkit/.
class Layer {
 public:
  Layer() = default;
  virtual ~Layer();
  Layer(const Layer&) = delete;
  Layer& operator=(const Layer&) = delete;

  /// Last on top. A layer that has another place leaves it first.
  void addSublayer(Layer& layer);
  void removeFromSuperlayer();
  const std::vector<Layer*>& sublayers() const { return sublayers_; }

  /// In the superlayer's coordinates; a view's own layer always fills its view.
  const Rect& frame() const { return frame_; }
  void setFrame(const Rect& frame);
  bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);
  Color backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(Color color);
  Color borderColor() const { return borderColor_; }
  void setBorderColor(Color color);
  /// In points, inside the frame; 0 draws none.
  double borderWidth() const { return borderWidth_; }
  void setBorderWidth(double width);
  /// In points; rounds background, border and gradient.
  double cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(double radius);

  /// Paints this layer and its sublayers; the canvas has this layer's frame origin as (0, 0).
  void render(Canvas& canvas) const;

 protected:
  /// What a kind of layer paints between its background and its border.
  virtual void renderContent(Canvas&) const {}
  void changed();

 private:
  friend class View;
  View* view_ = nullptr;
  Layer* superlayer_ = nullptr;
  std::vector<Layer*> sublayers_;
  Rect frame_;
  Color backgroundColor_ = Color::clear();
  Color borderColor_ = Color::clear();
  double borderWidth_ = 0;
  double cornerRadius_ = 0;
  bool hidden_ = false;
};

/// A linear gradient from top to bottom, or between two points of the unit square.
class GradientLayer : public Layer {
 public:
  /// At least two colours, spread evenly from start to end; fewer paint nothing.
  void setColors(std::vector<Color> colors);
  const std::vector<Color>& colors() const { return colors_; }
  /// In units of the frame: (0.5, 0) and (0.5, 1) at first.
  void setPoints(Point start, Point end);

 protected:
  void renderContent(Canvas& canvas) const override;

 private:
  std::vector<Color> colors_;
  Point start_{0.5, 0};
  Point end_{0.5, 1};
};

/// An outline that is filled, stroked or both.
class ShapeLayer : public Layer {
 public:
  void setPath(Path path);
  void setFillColor(Color color);
  void setStrokeColor(Color color);
  void setLineWidth(double width);
  const Path& path() const { return path_; }

 protected:
  void renderContent(Canvas& canvas) const override;

 private:
  Path path_;
  Color fillColor_ = Color::black();
  Color strokeColor_ = Color::clear();
  double lineWidth_ = 1;
};

}  // namespace platform

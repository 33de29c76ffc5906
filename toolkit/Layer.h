#pragma once

#include <utility>
#include <vector>

#include "platform/Canvas.h"

namespace toolkit {

class View;

/// A painted rectangle below a view's own painting: background, border, and sublayers. It links to
/// sublayers without owning them, is painted in their order, and repaints its view when changed.
/// No change is animated. User-interface thread only.
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
  const platform::Rect& frame() const { return frame_; }
  void setFrame(const platform::Rect& frame);
  bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);
  platform::Color backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(platform::Color color);
  platform::Color borderColor() const { return borderColor_; }
  void setBorderColor(platform::Color color);
  /// In points, inside the frame; 0 draws none.
  double borderWidth() const { return borderWidth_; }
  void setBorderWidth(double width);
  /// In points; rounds background, border and gradient.
  double cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(double radius);

  /// Paints this layer and its sublayers; the canvas has this layer's frame origin as (0, 0).
  void render(platform::Canvas& canvas) const;

 protected:
  /// What a kind of layer paints between its background and its border.
  virtual void renderContent(platform::Canvas&) const {}
  void changed();

 private:
  friend class View;
  View* view_ = nullptr;
  Layer* superlayer_ = nullptr;
  std::vector<Layer*> sublayers_;
  platform::Rect frame_;
  platform::Color backgroundColor_ = platform::Color::clear();
  platform::Color borderColor_ = platform::Color::clear();
  double borderWidth_ = 0;
  double cornerRadius_ = 0;
  bool hidden_ = false;
};

/// A linear gradient from top to bottom.
class GradientLayer : public Layer {
 public:
  /// At least two colours, spread evenly; fewer paint nothing.
  void setColors(std::vector<platform::Color> colors);
  const std::vector<platform::Color>& colors() const { return colors_; }

 protected:
  void renderContent(platform::Canvas& canvas) const override;

 private:
  std::vector<platform::Color> colors_;
};

/// An outline that is filled, stroked or both.
class ShapeLayer : public Layer {
 public:
  void setPath(platform::Path path);
  void setFillColor(platform::Color color);
  void setStrokeColor(platform::Color color);
  void setLineWidth(double width);
  const platform::Path& path() const { return path_; }

 protected:
  void renderContent(platform::Canvas& canvas) const override;

 private:
  platform::Path path_;
  platform::Color fillColor_ = platform::Color::black();
  platform::Color strokeColor_ = platform::Color::clear();
  double lineWidth_ = 1;
};

}  // namespace toolkit

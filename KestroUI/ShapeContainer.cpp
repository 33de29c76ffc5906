#include "KestroUI/ShapeContainer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestroui {

void ShapeContainer::setShape(ShapeControl& shape) {
  shape_ = &shape;
  setFace(shape);
  shape.holdChanged = [this](std::size_t index, bool held) { tellHold(index, held); };
  shape.valueDoubleTapped = [this](std::size_t index, std::vector<std::size_t> handle) {
    tellDoubleTap(index, std::move(handle));
  };
  shape.activeChanged = [this] { updateTitleLabel(); };
}

void ShapeContainer::setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) {
  Container::setParamKeys(std::move(keys));
  ranges_.assign(paramKeys().size(), {});
  shape_->setValueCount(paramKeys().size());
  for (std::size_t i = 0; i < paramKeys().size(); ++i) {
    shape_->setName(i, paramKeys()[i]->title());
    configure(i);
  }
}

float ShapeContainer::value(std::size_t index) const { return shape_->value(index); }

std::optional<platform::Point> ShapeContainer::handlePlace(std::size_t index) const {
  if (index >= paramKeys().size()) return std::nullopt;
  return convertFromRoot(shape_->convertToRoot(shape_->placeOf(index)));
}

void ShapeContainer::showValue(std::size_t index, float value, const std::string& text) {
  shape_->setValue(index, value);
  shape_->setText(index, text);
  Container::showValue(index, value, text);
}

void ShapeContainer::setKeyRange(std::size_t index, float minimum, float maximum) {
  if (index >= ranges_.size() || !(minimum <= maximum)) return;
  ranges_[index].minimum = minimum;
  ranges_[index].maximum = maximum;
  ranges_[index].isKnown = true;
  configure(index);
}

void ShapeContainer::setKeyStringValues(std::size_t index, const std::vector<std::string>& values) {
  if (index >= ranges_.size()) return;
  ranges_[index].names = values.size();
  configure(index);
}

void ShapeContainer::configure(std::size_t index) {
  const KeyRange& range = ranges_[index];
  const ValueForm form = valueForm(index);
  if (form == ValueForm::raw && range.isKnown)
    shape_->setRange(index, range.minimum, range.maximum);
  const float length = range.maximum - range.minimum;
  const bool symmetrical =
      range.minimum < 0 && std::fabs(range.minimum + range.maximum) < 1e-4f * length;
  shape_->setOrigin(index, symmetrical && form != ValueForm::pitch ? 0.5f : 0.0f);
  // As many steps as whole values; names alone tell no range.
  shape_->setStepCount(
      index, range.names > 0 ? static_cast<int>(std::clamp(std::round(length), 1.0f, 1e6f)) : 0);
  shape_->setReversed(index, isReversed(index));
}

bool ShapeContainer::isReversed(std::size_t index) const {
  return index == 0 ? inverted_ : paramKeys()[index]->settings().inverted;
}

void ShapeContainer::setInverted(bool inverted) {
  inverted_ = inverted;
  for (std::size_t i = 0; i < ranges_.size(); ++i) configure(i);
}

void ShapeContainer::setLinks(std::vector<bool> links) {
  Container::setLinks(links);
  shape_->setLinks(std::move(links));
}

void ShapeContainer::updateModulation() {
  for (std::size_t i = 0; i < paramKeys().size(); ++i) shape_->setLive(i, livePosition(i));
}

void ShapeContainer::draw(const platform::Rect& rect) {
  shape_->setShowsReadout(!showsTitle());
  Container::draw(rect);
}

std::string ShapeContainer::movingText() const { return shape_->activeText(); }

std::vector<std::size_t> ShapeContainer::movedIn(toolkit::Control&) { return shape_->takeMoved(); }

// Holds are told key by key.
void ShapeContainer::onEditingDidBegin() { updateTitleLabel(); }

void ShapeContainer::onEditingDidEnd() { updateTitleLabel(); }

void ShapeContainer::tellHold(std::size_t index, bool held) {
  if (index < paramKeys().size())
    tellGesture(held ? Hold::begins : Hold::ends, {paramKeys()[index]});
}

}  // namespace kestroui

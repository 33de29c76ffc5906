#include "KestroUI/ChoiceContainers.h"

#include <cmath>
#include <utility>

namespace kestroui {

namespace {

// The whole numbers of a range, for values that have no names.
std::vector<std::string> numbers(float minimum, float maximum) {
  constexpr long limit = 128;
  std::vector<std::string> texts;
  if (!std::isfinite(minimum) || !(minimum <= maximum)) return texts;
  const long first = std::lround(minimum);
  for (long i = 0; i < limit && static_cast<float>(first + i) <= maximum; ++i)
    texts.push_back(std::to_string(first + i));
  return texts;
}

}  // namespace

OnOffContainer::OnOffContainer(std::vector<std::string> titles) : button_(std::move(titles)) {
  setControl(button_);
}

void OnOffContainer::setStringValues(const std::vector<std::string>& values) {
  button_.setTitles(values);
}

SimpleButtonContainer::SimpleButtonContainer() {
  setControl(button_);
  setDisplayTitle(false);
}

void SimpleButtonContainer::setTitle(const std::string& title) {
  Container::setTitle(title);
  button_.setTitle(title);
}

RecContainer::RecContainer() {
  setControl(button_);
  Container::setControlColor(Theme::record);
}

void RecContainer::setValueRange(float minimum, float maximum) {
  button_.setStepCount(maximum - minimum > 1.5f ? 2 : 1);
}

void RecContainer::setStringValues(const std::vector<std::string>& values) {
  button_.setTitles(values);
}

void RecContainer::updateModulation() {
  if (!allowModulation) return;
  const std::optional<float> live = liveOutput(0);
  if (!live) return;
  button_.setWaiting(!((positionOfValue ? positionOfValue(0, *live) : *live) > 0.5f));
}

RadioContainer::RadioContainer(bool isWaveform) : buttons_({}, isWaveform) { setControl(buttons_); }

void RadioContainer::setValueRange(float minimum, float maximum) {
  if (buttons_.titles().empty()) buttons_.setTitles(numbers(minimum, maximum));
  buttons_.setRange(minimum, maximum);
  buttons_.setStepCount(static_cast<int>(std::lround(buttons_.maximum() - buttons_.minimum())));
}

void RadioContainer::setStringValues(const std::vector<std::string>& values) {
  buttons_.setTitles(values);
}

void DropDownListContainer::setValueRange(float minimum, float maximum) {
  if (list_.entries().empty()) list_.setEntries(numbers(minimum, maximum));
  list_.setRange(minimum, maximum);
  list_.setStepCount(static_cast<int>(std::lround(list_.maximum() - list_.minimum())));
}

void DropDownListContainer::setStringValues(const std::vector<std::string>& values) {
  list_.setEntries(values);
}

void DropDownListContainer::setIsVisible(bool visible) {
  if (!visible) list_.close();
  Container::setIsVisible(visible);
}

BitFlagsGroupContainer::BitFlagsGroupContainer(const std::vector<std::string>& flags) {
  setControl(group_);
  setFlags(flags);
}

void BitFlagsGroupContainer::setFlags(const std::vector<std::string>& flags) {
  group_.setTitles(flags);
}

void BitFlagsGroupContainer::setStringValues(const std::vector<std::string>& values) {
  if (group_.titles().empty()) setFlags(values);
}

}  // namespace kestroui

#include "benchmarks/StockEditor.h"

#include "benchmarks/Grid.h"

namespace bench {
namespace {

constexpr int columns = 20;
constexpr int lineHeight = 14, boxWidth = 44;

juce::String identifier(int index) { return "knob" + juce::String(index); }
juce::String name(int index) { return "Knob " + juce::String(index + 1); }

juce::AudioProcessorValueTreeState::ParameterLayout layout(int count) {
  juce::AudioProcessorValueTreeState::ParameterLayout result;
  for (int i = 0; i < count; ++i)
    result.add(std::make_unique<juce::AudioParameterFloat>(
        juce::ParameterID{identifier(i), 1}, name(i), juce::NormalisableRange<float>(0, 1, 0.01f),
        benchValue(i)));
  return result;
}

}  // namespace

StockProcessor::StockProcessor(int count) : state(*this, nullptr, "state", layout(count)) {}

StockEditor::StockEditor(StockProcessor& processor, ValueBoxes boxes)
    : juce::AudioProcessorEditor(processor) {
  setOpaque(true);
  for (int i = 0; i < processor.getParameters().size(); ++i) {
    Knob& knob = *knobs_.emplace_back(std::make_unique<Knob>());
    knob.slider.setSliderStyle(juce::Slider::RotaryHorizontalVerticalDrag);
    knob.slider.setTextBoxStyle(
        boxes == ValueBoxes::shown ? juce::Slider::TextBoxBelow : juce::Slider::NoTextBox, false,
        boxWidth, lineHeight);
    knob.title.setText(name(i), juce::dontSendNotification);
    knob.title.setJustificationType(juce::Justification::centred);
    knob.title.setFont(juce::Font(11.0f));
    addAndMakeVisible(knob.slider);
    addAndMakeVisible(knob.title);
    knob.attachment = std::make_unique<juce::AudioProcessorValueTreeState::SliderAttachment>(
        processor.state, identifier(i), knob.slider);
  }
}

void StockEditor::paint(juce::Graphics& graphics) {
  graphics.fillAll(getLookAndFeel().findColour(juce::ResizableWindow::backgroundColourId));
}

void StockEditor::resized() {
  const int rows = (static_cast<int>(knobs_.size()) + columns - 1) / columns;
  const int cellWidth = getWidth() / columns, cellHeight = getHeight() / rows;
  for (int i = 0; i < static_cast<int>(knobs_.size()); ++i) {
    juce::Rectangle<int> cell(i % columns * cellWidth, i / columns * cellHeight, cellWidth,
                              cellHeight);
    Knob& knob = *knobs_[static_cast<std::size_t>(i)];
    knob.title.setBounds(cell.removeFromBottom(lineHeight));
    knob.slider.setBounds(cell);
  }
}

}  // namespace bench

#include "benchmarks/StockEditor.h"

#include "benchmarks/Grid.h"

namespace bench {
namespace {

constexpr int lineHeight = 14;

juce::String identifier(int index) { return "knob" + juce::String(index); }
juce::String name(int index) { return "Knob " + juce::String(index + 1); }

juce::AudioProcessorValueTreeState::ParameterLayout layout(int count) {
  juce::AudioProcessorValueTreeState::ParameterLayout result;
  for (int i = 0; i < count; ++i)
    result.add(std::make_unique<juce::AudioParameterFloat>(
        juce::ParameterID{identifier(i), 1}, name(i), juce::NormalisableRange<float>(0, 1),
        benchValue(i)));
  return result;
}

}  // namespace

StockProcessor::StockProcessor(int count) : state(*this, nullptr, "state", layout(count)) {}

StockEditor::StockEditor(StockProcessor& processor, std::vector<juce::Rectangle<int>> frames,
                         ValueBoxes boxes)
    : juce::AudioProcessorEditor(processor), frames_(std::move(frames)) {
  setOpaque(true);
  for (int i = 0; i < static_cast<int>(frames_.size()); ++i) {
    Knob& knob = *knobs_.emplace_back(std::make_unique<Knob>());
    knob.slider.setSliderStyle(juce::Slider::RotaryHorizontalVerticalDrag);
    knob.slider.setTextBoxStyle(
        boxes == ValueBoxes::shown ? juce::Slider::TextBoxBelow : juce::Slider::NoTextBox, false,
        frames_[static_cast<std::size_t>(i)].getWidth(), lineHeight);
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
  for (std::size_t i = 0; i < knobs_.size(); ++i) {
    juce::Rectangle<int> frame = frames_[i];
    knobs_[i]->title.setBounds(frame.removeFromBottom(lineHeight));
    knobs_[i]->slider.setBounds(frame);
  }
}

}  // namespace bench

// What a script asks the editor and its audio unit.

#include <cmath>

#include "Orvane/ParameterMapping.h"
#include "toolkit/Button.h"
#include "tools/orvane/DescribedPlugin.h"
#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Picture.h"
#include "tools/orvane/Problems.h"
#include "tools/orvane/Text.h"
#include "tools/orvane/ViewTree.h"

namespace tool {

namespace {

DescribedAudioUnit& describedUnit(headless::HeadlessHost& host) {
  if (auto* unit = dynamic_cast<DescribedAudioUnit*>(&host.audioUnit())) return *unit;
  throw Failure("only a described plug-in's live values can be set");
}

/// The control of a key wherever it is, also on a page that is not shown.
kestroui::Container* containerOf(headless::HeadlessHost& host, const std::string& key) {
  if (kestroui::Container* shown = shownContainer(host, key)) return shown;
  const auto& controls = host.editor().controls();
  for (const auto& [own, container] : controls.controls())
    for (const auto& driven : container->paramKeys())
      if (driven->key() == key) return container.get();
  return nullptr;
}

/// The bytes of the binding that the control shows for a key, or null.
nlohmann::ordered_json bindingOf(const kestroui::Container* container, const std::string& key) {
  const auto index = container ? container->indexOf(key) : std::nullopt;
  const auto message = index ? container->midiMapMessage(*index) : std::nullopt;
  return message ? nlohmann::ordered_json(*message) : nlohmann::ordered_json();
}

nlohmann::ordered_json presetName(const platform::AudioUnit& unit) {
  const std::string name = unit.currentPresetName();
  return name.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(name);
}

}  // namespace

void DriveSession::get(const Words& words, Json& answer) {
  const std::string& key = words[0].text;
  const platform::AUParameter& parameter = this->parameter(key);
  const orvane::ParameterMapping mapping(parameter);
  const kestroui::Container* container = containerOf(host_, key);

  float position = mapping.positionOf(parameter.value());
  std::string text = parameter.stringFromValue(parameter.value());
  bool isModulated = false;
  if (const auto* flag = host_.audioUnit().isModulating(key)) isModulated = flag->load();
  if (container) {
    const std::size_t index = container->indexOf(key).value_or(0);
    const bool isRaw = container->valueForm(index) == kestroui::Container::ValueForm::raw;
    position = isRaw ? mapping.positionOf(container->value(index)) : container->value(index);
    const bool isOwn = index == 0;
    if (isOwn && !container->valueText().empty()) text = container->valueText();
    if (isOwn && container->control()) isModulated = container->control()->isModulated();
  }
  answer["value"] = shortest(parameter.value());
  answer["position"] = shortest(position);
  answer["text"] = text;
  answer["midi"] = bindingOf(container, key);
  answer["inactive"] = container && container->isInactive();
  answer["modulated"] = isModulated;
}

void DriveSession::expect(const Words& words, Json& answer) {
  constexpr double tolerance = 1e-4;
  const double value = shortest(parameter(words[0].text).value());
  const auto expected = parseNumber(words[1].text);
  if (!expected) throw Failure("expect wants a number, not " + inQuotes(words[1].text));
  if (std::abs(value - *expected) <= tolerance * std::abs(*expected)) return;
  answer = {{"ok", false},
            {"error", inQuotes(words[0].text) + " is " + numberText(value) + ", not " +
                          numberText(*expected)},
            {"value", value},
            {"expected", *expected}};
}

void DriveSession::live(const Words& words, Json&) {
  DescribedAudioUnit& unit = describedUnit(host_);
  parameter(words[0].text);
  const auto value = parseNumber(words[1].text);
  if (!value) throw Failure("live wants a number, not " + inQuotes(words[1].text));
  unit.setLive(words[0].text, static_cast<float>(*value));
  host_.loop().runDue();
}

void DriveSession::modulate(const Words& words, Json&) {
  DescribedAudioUnit& unit = describedUnit(host_);
  parameter(words[0].text);
  const std::string& flag = words[1].text;
  if (flag != "on" && flag != "off")
    throw Failure("modulate wants on or off, not " + inQuotes(flag));
  unit.setModulating(words[0].text, flag == "on");
  host_.loop().runDue();
}

void DriveSession::tree(const Words&, Json& answer) { answer["tree"] = viewTree(host_.rootView()); }

void DriveSession::state(const Words&, Json& answer) {
  answer["preset"] = presetName(host_.audioUnit());
  const orvane::MenuBar& bar = host_.editor().menuBar();
  answer["display"] = bar.displayMode() ? Json(bar.displayMode()->selectedIndex()) : Json();
  answer["page"] = host_.editor().settingsViewController().currentPage();
  const platform::Size size = host_.window().size();
  answer["size"] = {tidy(size.width), tidy(size.height)};
  Json overlays = Json::array(), buttons = Json::array();
  visitShown(host_.rootView(), [&](toolkit::View& view) {
    const std::string name = className(view);
    if (name.ends_with("Overlay")) overlays.push_back(name);
    if (const auto* button = dynamic_cast<toolkit::Button*>(&view))
      buttons.push_back(
          {{"class", name}, {"text", button->title()}, {"enabled", button->isEnabled()}});
  });
  answer["overlays"] = std::move(overlays);
  answer["modified"] = host_.editor().presetLibrary().isModified();
  const std::string notice = host_.editor().noticeView().text();
  answer["notice"] = notice.empty() ? Json() : Json(oneLine(notice));
  answer["buttons"] = std::move(buttons);
}

void DriveSession::snapshot(const std::string& file, Json&) {
  if (host_.loop().isInTurn())
    throw Failure("nothing is painted within together: snapshot comes after end");
  writePicture(host_, file, 1);
}

}  // namespace tool

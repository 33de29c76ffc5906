#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>

#include "backends/juce/AudioUnitEditor.h"
#include "backends/juce/ComputerKeyboard.h"
#include "backends/juce/JuceInput.h"
#include "backends/juce/Snapshot.h"
#include "backends/juce/StoredBindings.h"
#include "foundation/Bundle.h"
#include "tests/support/JuceBench.h"
#include "tests/support/OffScreenWindow.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using juce_backend::EditorComponent;
using platform::Key;
using platform::Modifiers;

/// Counts its life on screen; its view takes the keys that are typed as "x".
class Probe : public toolkit::ViewController {
 public:
  struct KeyView : toolkit::View {
    bool canBecomeFirstResponder() const override { return true; }
    bool keyPressed(const platform::KeyEvent& event) override { return event.text == "x"; }
  };

  void viewDidLoad() override { view().addSubview(keyView); }
  void viewDidAppear() override { log += "appear "; }
  void viewDidDisappear() override { log += "disappear "; }

  KeyView keyView;
  std::string log;
};

struct EditorTest : testing::Test {
  juce::ScopedJuceInitialiser_GUI juceIsUp;
};

TEST_F(EditorTest, paintsItsControllerAtTheScaleOfTheGraphics) {
  EditorComponent editor([] {
    auto controller = std::make_unique<Probe>();
    controller->view().setBackgroundColor(platform::Color::rgb(0x204060));
    return controller;
  });
  editor.setSize(50, 30);
  EXPECT_EQ(editor.controller().view().frame(), (platform::Rect{0, 0, 50, 30}));
  for (float scale : {1.0f, 1.25f, 2.0f, 1.0f}) {
    juce::Image image(juce::Image::RGB, juce::roundToInt(50 * scale), juce::roundToInt(30 * scale),
                      true, juce::SoftwareImageType());
    juce::Graphics graphics(image);
    graphics.addTransform(juce::AffineTransform::scale(scale));
    editor.paintEntireComponent(graphics, true);
    for (int x = 0; x < image.getWidth(); ++x)
      ASSERT_EQ(image.getPixelAt(x, image.getHeight() - 2).getARGB(), 0xff204060)
          << x << " at scale " << scale;
  }
}

TEST_F(EditorTest, aComponentOffScreenHasNotAppeared) {
  EditorComponent editor([] { return std::make_unique<Probe>(); });
  editor.setVisible(true);
  editor.setSize(20, 20);
  EXPECT_EQ(static_cast<Probe&>(editor.controller()).log, "");
}

TEST_F(EditorTest, keysThatNoControlUsesGoBackToTheHost) {
  EditorComponent editor([] { return std::make_unique<Probe>(); });
  EXPECT_FALSE(editor.keyPressed(juce::KeyPress('X', {}, 'x')));
  ASSERT_TRUE(static_cast<Probe&>(editor.controller()).keyView.becomeFirstResponder());
  EXPECT_TRUE(editor.keyPressed(juce::KeyPress('X', {}, 'x')));
  EXPECT_FALSE(editor.keyPressed(juce::KeyPress('Y', {}, 'y')));
  EXPECT_FALSE(editor.keyPressed(juce::KeyPress(juce::KeyPress::F5Key)));
}

TEST_F(EditorTest, theHostsEditorTakesAnySizeFromTheSmallestOnAndRemembersIt) {
  const orvane::PluginEntry entry = support::renderLogEntry();
  juce_backend::AudioUnitProcessor processor(entry);
  {
    const std::unique_ptr<juce::AudioProcessorEditor> editor(processor.createEditor());
    EXPECT_EQ(editor->getLocalBounds(), juce::Rectangle<int>(600, 400));
    EXPECT_EQ(foundation::Bundle::mainInfoDictionary()->at("CFBundleDisplayName"), "Test")
        << "what the program says of itself goes before what the plug-in does";
    EXPECT_TRUE(editor->isResizable());
    EXPECT_EQ(editor->getConstrainer()->getMinimumWidth(), 480);
    EXPECT_EQ(editor->getConstrainer()->getMinimumHeight(), 320);
    EXPECT_EQ(editor->getConstrainer()->getFixedAspectRatio(), 0);
    editor->setSize(700, 350);
    auto& content = static_cast<juce_backend::AudioUnitEditor&>(*editor).content();
    EXPECT_EQ(content.window().size(), (platform::Size{700, 350}));
    processor.editorBeingDeleted(editor.get());
  }
  const std::unique_ptr<juce::AudioProcessorEditor> again(processor.createEditor());
  EXPECT_EQ(again->getWidth(), 700);
  processor.editorBeingDeleted(again.get());
}

TEST_F(EditorTest, theMenuOfAControlHasWhatTheHostOffersForItsParameter) {
  struct Menu : juce::HostProvidedContextMenu {
    juce::PopupMenu getEquivalentPopupMenu() const override {
      juce::PopupMenu menu;
      menu.addItem("Show automation of " + name, [this] { shown = name; });
      return menu;
    }
    void showNativeMenu(juce::Point<int>) const override {}
    juce::String name;
    mutable juce::String shown;
  };
  struct Host : juce::AudioProcessorEditorHostContext {
    std::unique_ptr<juce::HostProvidedContextMenu> getContextMenuForParameter(
        const juce::AudioProcessorParameter* parameter) const override {
      auto menu = std::make_unique<Menu>();
      menu->name = parameter->getName(99);
      return menu;
    }
  } host;
  const orvane::PluginEntry entry = support::renderLogEntry();
  juce_backend::AudioUnitProcessor processor(entry);
  const std::unique_ptr<juce::AudioProcessorEditor> editor(processor.createEditor());
  auto& content = static_cast<juce_backend::AudioUnitEditor&>(*editor).content();
  content.window().prepareFrame();
  const auto texts = [&](const std::string& key) {
    juce::StringArray found;
    const juce::PopupMenu menu = content.menu(key);
    for (juce::PopupMenu::MenuItemIterator items(menu); items.next();)
      if (!items.getItem().isSeparator) found.add(items.getItem().text);
    return found.joinIntoString("; ");
  };
  const juce::String learn = "MIDI learn; Delete all MIDI bindings";
  EXPECT_EQ(texts("mix"), learn) << "a host that offers nothing";
  editor->setHostContext(&host);
  EXPECT_EQ(texts("mix"), learn + "; Show automation of Mix");
  EXPECT_EQ(texts(""), learn) << "beside the controls";

  auto& controller = dynamic_cast<orvane::KestroAUViewController&>(content.controller());
  std::string asked = "nobody";
  content.menu = [&asked](const std::string& key) {
    asked = key;
    return juce::PopupMenu();
  };
  const platform::Point knob = controller.container("cutoff")->frameInRoot().centre();
  {
    support::OffScreenWindow window(*editor);
    window.mouse({static_cast<float>(knob.x), static_cast<float>(knob.y)},
                 juce::ModifierKeys::rightButtonModifier);
    EXPECT_EQ(asked, "cutoff");
    window.mouse({2, 2});
    window.mouse({2, 2}, juce::ModifierKeys::rightButtonModifier);
    EXPECT_EQ(asked, "");
  }
  processor.editorBeingDeleted(editor.get());
}

TEST_F(EditorTest, assistiveTechnologyFindsEveryControlWithItsNameRoleAndValue) {
  const orvane::PluginEntry entry = support::renderLogEntry();
  juce_backend::AudioUnitProcessor processor(entry);
  EditorComponent editor(entry, processor.audioUnit());
  editor.window().prepareFrame();
  editor.accessibleEditor().update();

  std::map<juce::String, juce_backend::AccessibleElement*> found;
  for (const auto& element : editor.accessibleEditor().elements())
    if (element->view()->accessibility().role != platform::Accessibility::Role::text)
      found[juce::String(element->view()->accessibility().name)] = element.get();
  const struct {
    const char* name;
    juce::AccessibilityRole role;
    const char* text;
    double minimum, maximum;
  } expected[] = {{"cutoff", juce::AccessibilityRole::slider, "200 Hz", 0, 1},
                  {"mix", juce::AccessibilityRole::slider, "25 %", 0, 1},
                  {"wave", juce::AccessibilityRole::comboBox, "Sine", 0, 2},
                  {"on", juce::AccessibilityRole::toggleButton, "Off", 0, 1}};
  for (const auto& each : expected) {
    ASSERT_TRUE(found.count(each.name)) << each.name;
    juce_backend::AccessibleElement& element = *found[each.name];
    const auto handler = element.createAccessibilityHandler();
    EXPECT_EQ(handler->getRole(), each.role);
    EXPECT_EQ(handler->getTitle(), each.name);
    ASSERT_NE(handler->getValueInterface(), nullptr) << each.name;
    EXPECT_EQ(handler->getValueInterface()->getCurrentValueAsString(), each.text);
    EXPECT_EQ(handler->getValueInterface()->getRange().getMinimumValue(), each.minimum);
    EXPECT_EQ(handler->getValueInterface()->getRange().getMaximumValue(), each.maximum);
    EXPECT_FALSE(element.getBounds().isEmpty());
    EXPECT_TRUE(handler->getCurrentState().isFocusable());
  }
  found["mix"]->createAccessibilityHandler()->getValueInterface()->setValue(0.5);
  EXPECT_EQ(processor.audioUnit().parameter("mix")->value(), 50);
  found["on"]->createAccessibilityHandler()->getActions().invoke(
      juce::AccessibilityActionType::toggle);
  EXPECT_EQ(processor.audioUnit().parameter("on")->value(), 1);
  const auto isChecked = [&](const char* name) {
    return found[name]->createAccessibilityHandler()->getCurrentState().isChecked();
  };
  EXPECT_TRUE(isChecked("on"));
  EXPECT_FALSE(isChecked("mix"));
  found["on"]->createAccessibilityHandler()->getActions().invoke(
      juce::AccessibilityActionType::toggle);
  EXPECT_FALSE(isChecked("on"));
}

TEST_F(EditorTest, anEditorThatClosesInTheMiddleOfADragEndsItsGesture) {
  const orvane::PluginEntry entry = support::renderLogEntry();
  juce_backend::AudioUnitProcessor processor(entry);
  int open = 0, begun = 0;
  processor.audioUnit().parameterTree().setGestureObserver(
      [&](platform::AUParameterAddress, bool began) {
        open += began ? 1 : -1;
        begun += began;
      });
  {
    EditorComponent editor(entry, processor.audioUnit());
    editor.window().prepareFrame();
    auto& controller = static_cast<orvane::KestroAUViewController&>(editor.controller());
    const platform::Point at = controller.container("mix")->control()->frameInRoot().centre();
    editor.window().touchBegan(1, toolkit::Touch::Kind::mouse, at, 1);
    editor.window().touchMoved(1, {at.x, at.y - 20});
    EXPECT_EQ(open, 1);
  }
  EXPECT_EQ(begun, 1);
  EXPECT_EQ(open, 0);
}

TEST_F(EditorTest, storedBindingsComeBackWithTheSettings) {
  const std::filesystem::path file =
      std::filesystem::path(testing::TempDir()) / "orvane-bindings.settings";
  std::filesystem::remove(file);
  juce::PropertiesFile::Options options;
  options.millisecondsBeforeSaving = -1;
  support::RenderLog unit;
  {
    orvane::MidiLearn midi(unit);
    juce::PropertiesFile settings(juce::File(file.string()), options);
    const juce_backend::StoredBindings stored(midi, settings);
    midi.bind("mix", {0xb0, 74});
  }
  orvane::MidiLearn midi(unit);
  juce::PropertiesFile settings(juce::File(file.string()), options);
  const juce_backend::StoredBindings stored(midi, settings);
  EXPECT_EQ(midi.bindings(), (orvane::MidiLearn::Bindings{{"mix", {0xb0, 74}}}));
  midi.removeAll();
  EXPECT_FALSE(settings.containsKey("midiMap"));
  std::filesystem::remove(file);
}

TEST_F(EditorTest, severalEditorsShareTheProcessAndMayCloseInAnyOrder) {
  const orvane::PluginEntry entry = support::renderLogEntry();
  auto firstUnit = entry.makeAudioUnit(), secondUnit = entry.makeAudioUnit();
  auto first = std::make_unique<EditorComponent>(entry, *firstUnit);
  auto second = std::make_unique<EditorComponent>(entry, *secondUnit);
  first.reset();
  firstUnit.reset();
  secondUnit->setParameter("mix", 3);
  // The host drops the sound before the editor.
  secondUnit.reset();
  juce::Image image(juce::Image::RGB, 600, 400, true, juce::SoftwareImageType());
  juce::Graphics graphics(image);
  second->paintEntireComponent(graphics, true);
}

TEST(JuceInput, keysKeepTheirMeaning) {
  using juce::KeyPress;
  using juce::ModifierKeys;
  const struct {
    KeyPress press;
    Key key;
    Modifiers modifiers;
    const char* text;
  } cases[] = {
      {KeyPress('A', {}, 'a'), Key::character, Modifiers::none, "a"},
      {KeyPress('A', ModifierKeys::shiftModifier, 'A'), Key::character, Modifiers::shift, "A"},
      {KeyPress(0xe4, {}, 0xe4), Key::character, Modifiers::none, "\xc3\xa4"},
      {KeyPress('C', ModifierKeys::ctrlModifier, 3), Key::character, Modifiers::control, "c"},
      {KeyPress(KeyPress::spaceKey, {}, ' '), Key::space, Modifiers::none, " "},
      {KeyPress(KeyPress::returnKey, {}, '\r'), Key::returnKey, Modifiers::none, ""},
      {KeyPress(KeyPress::tabKey, ModifierKeys::shiftModifier, '\t'), Key::tab, Modifiers::shift,
       ""},
      {KeyPress(KeyPress::backspaceKey, {}, 8), Key::backspace, Modifiers::none, ""},
      {KeyPress(KeyPress::deleteKey, {}, 127), Key::deleteForward, Modifiers::none, ""},
      {KeyPress(KeyPress::upKey, ModifierKeys::altModifier, 0), Key::up, Modifiers::alt, ""},
      {KeyPress(KeyPress::F5Key), Key::character, Modifiers::none, ""},
      {KeyPress('?', {}, 127), Key::character, Modifiers::none, ""},
      {KeyPress(KeyPress::escapeKey, {}, 27), Key::escape, Modifiers::none, ""},
      {KeyPress(KeyPress::returnKey, {}, 'x'), Key::returnKey, Modifiers::none, ""},
      {KeyPress(KeyPress::leftKey, ModifierKeys::ctrlModifier, 0), Key::left, Modifiers::control,
       ""},
      {KeyPress(KeyPress::rightKey), Key::right, Modifiers::none, ""},
      {KeyPress(KeyPress::downKey), Key::down, Modifiers::none, ""},
      {KeyPress(KeyPress::pageUpKey), Key::pageUp, Modifiers::none, ""},
      {KeyPress(KeyPress::pageDownKey), Key::pageDown, Modifiers::none, ""},
      {KeyPress(KeyPress::homeKey), Key::home, Modifiers::none, ""},
      {KeyPress(KeyPress::endKey), Key::end, Modifiers::none, ""},
  };
  for (const auto& c : cases) {
    const platform::KeyEvent event = juce_backend::toKeyEvent(c.press);
    EXPECT_EQ(event.key, c.key) << c.press.getTextDescription();
    EXPECT_EQ(event.modifiers, c.modifiers) << c.press.getTextDescription();
    EXPECT_EQ(event.text, c.text) << c.press.getTextDescription();
  }
}

TEST(JuceInput, fingersPensAndTheMouseAreTouchesOfTheirOwnAtOnce) {
  using Source = juce::MouseInputSource::InputSourceType;
  std::set<int> ids;
  for (const auto type : {Source::mouse, Source::touch, Source::pen})
    for (int index = 0; index < 10; ++index) ids.insert(juce_backend::toTouchId(type, index));
  EXPECT_EQ(ids.size(), 30u);
}

TEST(JuceInput, coloursAndTextsArePassedOnWhole) {
  EXPECT_EQ(juce_backend::toColour(platform::Color::rgb(0x123456).withAlpha(0.5f)).getARGB(),
            0x80123456u);
  EXPECT_EQ(juce_backend::toText("S\u00e4ge \u266f").length(), 6);
  EXPECT_EQ(juce_backend::toText(""), juce::String());
}

TEST(JuceInput, oneNotchOfTheWheelIsOne) {
  juce::MouseWheelDetails wheel{};
  wheel.deltaY = -50.0f / 256.0f;
  wheel.deltaX = 100.0f / 256.0f;
  const platform::WheelEvent event =
      juce_backend::toWheelEvent({3, 4}, wheel, juce::ModifierKeys::shiftModifier);
  EXPECT_NEAR(event.deltaY, -1, 1e-6);
  EXPECT_NEAR(event.deltaX, 2, 1e-6);
  EXPECT_EQ(event.location, (platform::Point{3, 4}));
  EXPECT_EQ(event.modifiers, Modifiers::shift);
}

TEST(ComputerKeyboard, isLaidOutAsAPiano) {
  const std::pair<int, int> cases[] = {{'Z', 48}, {'z', 48}, {'S', 49}, {'M', 59},
                                       {',', 60}, {'Q', 60}, {'2', 61}, {'P', 76},
                                       {'A', -1}, {'1', -1}, {0, -1},   {0x10000 | 'Z', -1}};
  for (const auto& [key, note] : cases)
    EXPECT_EQ(juce_backend::ComputerKeyboard::noteForKey(key), note) << key;
}

TEST(ComputerKeyboard, playsAHeldKeyOnceAndLeavesShortcutsAlone) {
  std::vector<juce::MidiMessage> sent;
  juce_backend::ComputerKeyboard keyboard([&](const juce::MidiMessage& m) { sent.push_back(m); });
  EXPECT_TRUE(keyboard.keyPressed(juce::KeyPress('Z', {}, 'z')));
  EXPECT_TRUE(keyboard.keyPressed(juce::KeyPress('Z', {}, 'z')));
  for (const int modifier : {juce::ModifierKeys::ctrlModifier, juce::ModifierKeys::altModifier})
    EXPECT_FALSE(keyboard.keyPressed(juce::KeyPress('X', modifier, 0)));
  EXPECT_FALSE(keyboard.keyPressed(juce::KeyPress(juce::KeyPress::upKey)));
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_TRUE(sent[0].isNoteOn());
  keyboard.releaseAll();
  keyboard.releaseAll();
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_TRUE(sent[1].isNoteOff());
  EXPECT_EQ(sent[1].getNoteNumber(), 48);
}

TEST(ComputerKeyboard, endsTheNotesOfKeysThatAreUp) {
  std::vector<int> ended;
  juce_backend::ComputerKeyboard keyboard([&](const juce::MidiMessage& m) {
    if (m.isNoteOff()) ended.push_back(m.getNoteNumber());
  });
  EXPECT_FALSE(keyboard.keyStateChanged());
  keyboard.keyPressed(juce::KeyPress('z', {}, 'z'));
  keyboard.keyPressed(juce::KeyPress('Q', {}, 'q'));
  // Nobody holds a real key.
  EXPECT_TRUE(keyboard.keyStateChanged());
  EXPECT_EQ(std::multiset<int>(ended.begin(), ended.end()), (std::multiset<int>{48, 60}));
  EXPECT_FALSE(keyboard.keyStateChanged());
}

TEST(Snapshot, writesAPictureOfEveryPageAndSaysWhatFails) {
  const support::TemporaryFolder folder;
  orvane::PluginEntry entry = support::renderLogEntry();
  entry.makeViewController = [] {
    auto design = std::make_shared<support::GivenDesign>();
    design->addPage("Filter", {support::section("Filter", {"cutoff", "wave"})});
    design->addPage("Out", {support::section("Out", {"mix"})});
    return std::make_unique<support::TestController>(std::move(design));
  };
  std::string error;
  const std::string longer(300000, 'x');
  folder.write("out/page-1.png", longer);
  const auto paths = juce_backend::writePages(entry, {300, 200}, 1.5, folder / "out", error);
  ASSERT_EQ(paths.size(), 2u) << error;
  for (const std::string& path : paths) {
    const juce::Image picture = juce::ImageFileFormat::loadFrom(juce::File(path));
    EXPECT_EQ(picture.getBounds(), juce::Rectangle<int>(450, 300));
    EXPECT_LT(std::filesystem::file_size(path), longer.size()) << "what was there is gone";
  }
  EXPECT_NE(support::textOf(paths[0]), support::textOf(paths[1])) << "each page is another picture";

  EXPECT_TRUE(juce_backend::writePages(entry, {300, 200}, 1, paths[0] + "/below", error).empty());
  EXPECT_EQ(error, paths[0] + "/below: cannot make the folder");
  error.clear();
  std::filesystem::create_directories(folder / "taken/page-2.png");
  EXPECT_EQ(juce_backend::writePages(entry, {300, 200}, 1, folder / "taken", error).size(), 1u);
  EXPECT_EQ(error.rfind(folder / "taken/page-2.png: cannot write the picture", 0), 0u) << error;
}

}  // namespace

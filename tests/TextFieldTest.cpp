#include "toolkit/TextField.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ManualDriver.h"
#include "tests/support/WindowBench.h"

namespace {

using platform::Key;
using platform::Modifiers;

// A field of 200 points in a window whose letters are 10 points wide.
class TextFieldTest : public testing::Test, public platform::WeakTarget {
 public:
  void onBegin() { journal += 'b'; }
  void onChange() { journal += 'c'; }
  void onEnd() { journal += 'e'; }

 protected:
  class Bench : public support::WindowBench {
    double textWidth(std::string_view text, const platform::Font&) override {
      return 10 * static_cast<double>(text.size());
    }
  };

  TextFieldTest() {
    using Event = toolkit::ControlEvent;
    field.setFrame({0, 0, 200, 30});
    bench.root().addSubview(field);
    field.addTarget<&TextFieldTest::onBegin>(*this, Event::editingDidBegin);
    field.addTarget<&TextFieldTest::onChange>(*this, Event::editingChanged);
    field.addTarget<&TextFieldTest::onEnd>(*this, Event::editingDidEnd);
    bench.frame();
  }

  void type(const std::string& text) {
    for (char c : text) bench.key(Key::character, Modifiers::none, std::string(1, c));
  }
  void shortcut(const std::string& letter, Modifiers more = Modifiers::none) {
    bench.key(Key::character, Modifiers::control | more, letter);
  }

  void selectAllAndLeave() {
    field.selectAll();
    field.resignFirstResponder();
  }

  support::ManualLoop loop;
  Bench bench;
  toolkit::TextField field;
  std::string journal;
};

TEST_F(TextFieldTest, typesWhereItWasTouchedAndTellsEachChange) {
  field.setText("Glas");
  bench.tap({36, 15});  // 3 points of margin, then three letters and a bit
  type("s");
  EXPECT_EQ(field.text(), "Glass");
  bench.key(Key::end);
  bench.key(Key::backspace);
  bench.key(Key::home);
  bench.key(Key::deleteForward);
  EXPECT_EQ(field.text(), "las");
  field.resignFirstResponder();
  EXPECT_EQ(journal, "bccce");
  EXPECT_FALSE(bench.key(Key::character, Modifiers::none, "x")) << "the host's again";
}

TEST_F(TextFieldTest, aSelectionIsReplacedCopiedAndBroughtBack) {
  field.setText("Sea Glass");
  field.becomeFirstResponder();
  EXPECT_EQ(field.selectedText(), "Sea Glass") << "all of it, when the keyboard comes";
  shortcut("c");
  EXPECT_EQ(bench.clipboard, "Sea Glass");
  bench.key(Key::end);
  bench.key(Key::left, Modifiers::shift | Modifiers::control);
  EXPECT_EQ(field.selectedText(), "Glass");
  type("Foam");
  EXPECT_EQ(field.text(), "Sea Foam");
  shortcut("z");
  EXPECT_EQ(field.text(), "Sea F") << "letters typed after each other are one step";
  shortcut("z");
  EXPECT_EQ(field.text(), "Sea Glass");
  shortcut("z", Modifiers::shift);
  shortcut("y");
  EXPECT_EQ(field.text(), "Sea Foam");
  bench.clipboard = "one\r\ntwo\tthree\x01";
  shortcut("a");
  shortcut("v");
  EXPECT_EQ(field.text(), "one two three ") << "a line stays a line";
  shortcut("a");
  shortcut("x");
  EXPECT_EQ(field.text(), "");
}

TEST_F(TextFieldTest, keysMoveTheCaretAndExtendTheSelection) {
  const auto shift = Modifiers::shift, control = Modifiers::control, alt = Modifiers::alt;
  struct Press {
    Key key;
    Modifiers modifiers = Modifiers::none;
  };
  struct Case {
    std::vector<Press> presses;
    const char *selected, *typed;
  };
  // From the start of "Sea Glass Pad"; then an x is typed.
  const Case cases[] = {
      {{{Key::right}}, "", "Sxea Glass Pad"},
      {{{Key::right, control}}, "", "Sea xGlass Pad"},
      {{{Key::right, alt}, {Key::right, alt}}, "", "Sea Glass xPad"},
      {{{Key::end}, {Key::left}}, "", "Sea Glass Paxd"},
      {{{Key::end}, {Key::left, control}}, "", "Sea Glass xPad"},
      {{{Key::left}}, "", "xSea Glass Pad"},
      {{{Key::right, shift}, {Key::right, shift}}, "Se", "xa Glass Pad"},
      {{{Key::right, control}, {Key::right, shift | control}}, "Glass ", "Sea xPad"},
      {{{Key::right, control}, {Key::right, shift | control}, {Key::left}}, "", "Sea xGlass Pad"},
      {{{Key::right, control}, {Key::right, shift | control}, {Key::right}}, "", "Sea Glass xPad"},
      {{{Key::right}, {Key::end, shift}}, "ea Glass Pad", "Sx"},
      {{{Key::end}, {Key::home, shift}}, "Sea Glass Pad", "x"},
      {{{Key::end}, {Key::home, shift}, {Key::left}}, "", "xSea Glass Pad"},
      {{{Key::end}, {Key::backspace, control}}, "", "Sea Glass x"},
      {{{Key::deleteForward, control}}, "", "xGlass Pad"},
      {{{Key::right, shift}, {Key::right, shift}, {Key::backspace}}, "", "xa Glass Pad"},
      {{{Key::backspace}}, "", "xSea Glass Pad"},
  };
  field.becomeFirstResponder();
  for (const Case& each : cases) {
    field.setText("Sea Glass Pad");
    bench.key(Key::home);
    for (const Press& press : each.presses) bench.key(press.key, press.modifiers);
    EXPECT_EQ(field.selectedText(), each.selected) << each.typed;
    type("x");
    EXPECT_EQ(field.text(), each.typed);
  }
}

TEST_F(TextFieldTest, onlyWhatChangesIsToldAndCanBeUndone) {
  field.setText("old");
  field.becomeFirstResponder();
  journal.clear();
  bench.key(Key::end);
  bench.key(Key::deleteForward);
  bench.clipboard = "kept";
  shortcut("c");
  shortcut("x");
  EXPECT_EQ(std::exchange(bench.clipboard, ""), "kept");
  shortcut("v");
  shortcut("z");
  shortcut("y");
  EXPECT_EQ(journal, "") << "nothing was selected, pasted or done yet";
  EXPECT_FALSE(bench.key(Key::character, Modifiers::alt, "x")) << "the host's";
  type("er");
  bench.key(Key::left);
  type("t");
  shortcut("z");
  EXPECT_EQ(field.text(), "older") << "letters typed elsewhere are another step";
  bench.key(Key::end);
  bench.key(Key::backspace);
  shortcut("y");
  EXPECT_EQ(field.text(), "olde") << "what was undone is forgotten by the next change";
  shortcut("z");
  EXPECT_EQ(field.text(), "older");
  bench.clipboard = "er";
  shortcut("v");
  shortcut("v");
  shortcut("z");
  EXPECT_EQ(field.text(), "olderer") << "each paste is a step";
  field.setText("new");
  shortcut("z");
  EXPECT_EQ(field.text(), "new");
  field.setEnabled(false);
  bench.tap({20, 15});
  EXPECT_FALSE(bench.key(Key::character, Modifiers::none, "x"));
  EXPECT_EQ(field.text(), "new");
}

TEST_F(TextFieldTest, showsSelectionAndABlinkingCaretOnlyWithTheKeyboard) {
  const auto rects = [&] {
    bench.frame();
    std::size_t count = 0;
    for (const std::string& line : bench.painted()) count += line.rfind("rect ", 0) == 0;
    return count;
  };
  field.setPlaceholder("NAME", platform::Color::white());
  EXPECT_EQ(rects(), 0u);
  EXPECT_THAT(bench.painted(), testing::Contains("text NAME"));
  field.setText("Tide");
  field.selectAll();
  EXPECT_EQ(rects(), 0u);
  field.becomeFirstResponder();
  EXPECT_EQ(rects(), 2u) << "all is selected";
  bench.key(Key::end);
  EXPECT_EQ(rects(), 1u);
  loop.advance(0.6);
  EXPECT_EQ(rects(), 0u);
  type("s");
  EXPECT_EQ(rects(), 1u) << "a caret that has moved is lit";
  loop.advance(0.6);
  loop.advance(0.6);
  EXPECT_EQ(rects(), 1u);
  selectAllAndLeave();
  EXPECT_EQ(rects(), 0u);
  EXPECT_EQ(field.selectedText(), "");
}

TEST_F(TextFieldTest, doubleTapSelectsAWordAndDraggingSelectsLetters) {
  field.setText("Low Tide");
  bench.window.touchBegan(1, toolkit::Touch::Kind::mouse, {60, 15}, 2);
  bench.lift({60, 15});
  EXPECT_EQ(field.selectedText(), "Tide");
  bench.press({3, 15});
  bench.drag({24, 15});
  bench.lift({24, 15});
  EXPECT_EQ(field.selectedText(), "Lo");
  const auto tap = [&](double x, int count, Modifiers modifiers = Modifiers::none) {
    bench.window.touchBegan(1, toolkit::Touch::Kind::mouse, {x, 15}, count, modifiers);
    bench.drag({x + 25, 15});
    bench.lift({x + 25, 15});
    return field.selectedText();
  };
  EXPECT_EQ(tap(60, 2), "Tide") << "a hand that slips takes no letters off";
  EXPECT_EQ(tap(35, 2), " ");
  EXPECT_EQ(tap(60, 3), "Low Tide");
  bench.tap({11, 15});
  bench.window.touchBegan(1, toolkit::Touch::Kind::mouse, {43, 15}, 1, Modifiers::shift);
  bench.lift({43, 15});
  EXPECT_EQ(field.selectedText(), "ow ");
}

TEST_F(TextFieldTest, theClearButtonEmptiesAndTellsOnce) {
  field.setClearButtonShown(true);
  field.setText("bass");
  field.becomeFirstResponder();
  bench.frame();
  journal.clear();
  bench.press({190, 15});
  bench.lift({190, 60});
  EXPECT_EQ(field.text(), "bass") << "who slides off it has thought better of it";
  bench.tap({190, 15});
  EXPECT_EQ(field.text(), "");
  EXPECT_EQ(journal, "c");
  bench.tap({190, 15});
  EXPECT_EQ(journal, "c") << "without a text there is no button";
}

TEST_F(TextFieldTest, leavesEscapeTabAndUnwantedReturnToItsSurroundings) {
  struct Delegate : toolkit::TextFieldDelegate, platform::WeakTarget {
    bool textFieldShouldReturn(toolkit::TextField& asked) override {
      asked.resignFirstResponder();
      return true;
    }
  };
  field.becomeFirstResponder();
  EXPECT_FALSE(bench.key(Key::escape));
  EXPECT_FALSE(bench.key(Key::returnKey));
  Delegate delegate;
  field.delegate = &delegate;
  EXPECT_TRUE(bench.key(Key::returnKey));
  EXPECT_FALSE(field.isFirstResponder());
}

TEST_F(TextFieldTest, aLongTextScrollsSoThatTheCaretShowsAndNothingBlinksWithoutTheKeyboard) {
  field.becomeFirstResponder();
  type("a text that is wider than its field");
  bench.frame();
  const auto caretShows = [&] {
    for (const std::string& line : bench.painted())
      if (line.rfind("rect ", 0) == 0 && line.find(" 1.5 ") != std::string::npos)
        return std::stod(line.substr(5)) >= 0 && std::stod(line.substr(5)) < 200;
    return false;
  };
  EXPECT_TRUE(caretShows());
  bench.key(Key::home);
  bench.frame();
  EXPECT_TRUE(caretShows());
  field.resignFirstResponder();
  bench.frame();
  const auto painted = bench.window.paintedViews();
  loop.advance(3);
  bench.frame();
  EXPECT_EQ(bench.window.paintedViews(), painted);
}

TEST_F(TextFieldTest, theCaretGoesByWhatAReaderTakesForCharacters) {
  field.setText("a\u1100\u1161\u0b95\u0bbfe\u0301");
  field.becomeFirstResponder();
  bench.key(Key::end);
  for (const char* left : {"a\u1100\u1161\u0b95\u0bbf", "a\u1100\u1161", "a", ""}) {
    bench.key(Key::backspace);
    EXPECT_EQ(field.text(), left);
  }
}

}  // namespace

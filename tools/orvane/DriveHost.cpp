// What a script does as the host and as the user.

#include <algorithm>
#include <utility>

#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/KeyNames.h"
#include "tools/orvane/Text.h"
#include "tools/orvane/ToolError.h"

namespace tool {

namespace {

constexpr double maxWait = 3600;
constexpr double farthest = 100000;

double numberOf(const Word& word, double low, double high) {
  const auto number = parseNumber(word.text);
  if (number && *number >= low && *number <= high) return *number;
  throw Failure("a number from " + std::to_string(static_cast<int>(low)) + " to " +
                std::to_string(static_cast<int>(high)) + " is wanted, not " + inQuotes(word.text));
}

platform::Point distanceOf(const Word& x, const Word& y) {
  return {numberOf(x, -farthest, farthest), numberOf(y, -farthest, farthest)};
}

}  // namespace

void DriveSession::size(const Words& words, Json&) {
  const auto size = parseSize(words[0].text + 'x' + words[1].text);
  if (!size)
    throw Failure("size wants W H in points, above 0 and at most 16384, not " +
                  inQuotes(words[0].text + ' ' + words[1].text));
  host_.resize(*size);
}

void DriveSession::page(const Words& words, Json&) {
  const auto page = parseCount(words[0].text);
  if (!page) throw Failure("page wants a number from 0 on, not " + inQuotes(words[0].text));
  showPage(host_, *page, "");
}

void DriveSession::tap(const Words& words, Json&) { host_.tap(placeOfTarget(host_, words[0])); }

void DriveSession::doubleTap(const Words& words, Json&) {
  host_.doubleTap(placeOfTarget(host_, words[0]));
}

void DriveSession::drag(const Words& words, Json&) {
  const platform::Point distance = distanceOf(words[1], words[2]);
  host_.drag(placeOfTarget(host_, words[0]), distance);
}

void DriveSession::press(const Words& words, Json&) {
  if (!host_.press(placeOfTarget(host_, words[0]))) throw Failure("a finger is pressed already");
}

void DriveSession::move(const Words& words, Json&) {
  if (!host_.move(distanceOf(words[0], words[1]))) throw Failure("no finger is pressed");
}

void DriveSession::lift(const Words&, Json&) {
  if (!host_.lift()) throw Failure("no finger is pressed");
}

void DriveSession::wheel(const Words& words, Json& answer) {
  const double notches = numberOf(words[1], -farthest, farthest);
  answer["used"] = host_.turnWheel(placeOfTarget(host_, words[0]), notches);
}

void DriveSession::key(const Words& words, Json& answer) {
  answer["used"] = host_.pressKey(keyEventOf(words[0].text));
}

void DriveSession::type(const std::string& text, Json&) {
  if (!host_.window().firstResponder()) throw Failure("nothing has the keyboard");
  host_.type(text);
}

void DriveSession::set(const Words& words, Json&) {
  parameter(words[0].text);
  const auto value = parseNumber(words[1].text);
  if (!value) throw Failure("set wants a number, not " + inQuotes(words[1].text));
  host_.automate(words[0].text, static_cast<float>(*value));
}

void DriveSession::respond(const std::string& text, Json&) {
  platform::URLSession::Answer answer;
  if (text == "error") {
    answer.error = "the server cannot be reached";
  } else {
    const std::size_t end = std::min(text.find(' '), text.size());
    const auto status = parseCount(text.substr(0, end));
    if (!status)
      throw Failure("respond wants the status of an answer and its text, or error, not " +
                    inQuotes(text));
    answer.statusCode = *status;
    if (end < text.size())
      answer.data.assign(text.begin() + static_cast<long>(end) + 1, text.end());
  }
  if (!host_.application()->session().respond(std::move(answer)))
    throw Failure("no request waits for an answer");
  host_.loop().runDue();
}

void DriveSession::appear(const Words&, Json&) { host_.appear(); }

void DriveSession::disappear(const Words&, Json&) { host_.disappear(); }

void DriveSession::wait(const Words& words, Json&) {
  const double seconds = numberOf(words[0], 0, maxWait);
  if (host_.loop().isInTurn())
    throw Failure("the clock stands still within together: wait comes after end");
  host_.loop().advance(seconds);
}

void DriveSession::together(const Words&, Json&) {
  if (host_.loop().isInTurn())
    throw Failure("together is within together: a turn holds no other turn");
  host_.loop().beginTurn();
}

void DriveSession::end(const Words&, Json&) {
  if (!host_.loop().isInTurn()) throw Failure("end is without together");
  host_.loop().endTurn();
}

void DriveSession::frames(const Words&, Json& answer) {
  const headless::FrameCount count = host_.takeFrames();
  answer["displayFrames"] = count.displayFrames;
  answer["repaints"] = count.repaints;
  answer["repaintedArea"] = tidy(count.repaintedArea);
}

}  // namespace tool

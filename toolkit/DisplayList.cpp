#include "toolkit/DisplayList.h"

namespace toolkit {

using platform::Rect;
using platform::TextRun;

namespace {

bool sameText(const TextRun& a, const TextRun& b) {
  return a.text == b.text && a.font == b.font && a.rect == b.rect && a.alignment == b.alignment &&
         a.color == b.color && a.minimumScale == b.minimumScale;
}

/// Takes the numbers of one command after the other.
class Values {
 public:
  explicit Values(const double* next) : next_(next) {}

  double number() { return *next_++; }
  Rect rect() {
    const Rect r{next_[0], next_[1], next_[2], next_[3]};
    next_ += 4;
    return r;
  }
  platform::Placement placement() {
    const platform::Placement p{{next_[0], next_[1]}, next_[2]};
    next_ += 3;
    return p;
  }

 private:
  const double* next_;
};

}  // namespace

void DisplayList::replay(platform::Canvas& canvas) const {
  Values values(values_.data());
  for (const Command& c : commands_) {
    switch (c.op) {
      case Op::save:
        canvas.save();
        break;
      case Op::restore:
        canvas.restore();
        break;
      case Op::place:
        canvas.place(values.placement());
        break;
      case Op::clip:
        canvas.clip(values.rect());
        break;
      case Op::fillRect:
        canvas.fillRect(values.rect(), paints_[c.paint]);
        break;
      case Op::fillRoundedRect: {
        const Rect rect = values.rect();
        canvas.fillRoundedRect(rect, values.number(), paints_[c.paint]);
        break;
      }
      case Op::strokeRoundedRect: {
        const Rect rect = values.rect();
        const double radius = values.number();
        canvas.strokeRoundedRect(rect, radius, values.number(), paints_[c.paint]);
        break;
      }
      case Op::fillEllipse:
        canvas.fillEllipse(values.rect(), paints_[c.paint]);
        break;
      case Op::fillPath:
        canvas.fillPath(paths_[c.item], paints_[c.paint]);
        break;
      case Op::strokePath: {
        platform::StrokeStyle style;
        style.width = values.number();
        style.cap = static_cast<platform::StrokeStyle::Cap>(static_cast<int>(values.number()));
        canvas.strokePath(paths_[c.item], style, paints_[c.paint]);
        break;
      }
      case Op::text:
        canvas.drawTextRun(texts_[c.item]);
        break;
    }
  }
}

void DisplayList::clear() {
  commands_.clear();
  values_.clear();
  paints_.shrink(0);
  paths_.shrink(0);
  texts_.shrink(0);
  bounds_ = {};
  exceedsSize_ = false;
}

void DisplayList::assign(const DisplayList& other) {
  commands_ = other.commands_;
  values_ = other.values_;
  paints_.shrink(0);
  for (std::size_t i = 0; i < other.paints_.size(); ++i) paints_.add() = other.paints_[i];
  paths_.shrink(0);
  for (std::size_t i = 0; i < other.paths_.size(); ++i) paths_.add() = other.paths_[i];
  texts_.shrink(0);
  for (std::size_t i = 0; i < other.texts_.size(); ++i) {
    TextRun& text = texts_.add();
    if (!sameText(text, other.texts_[i])) text = other.texts_[i];
  }
  bounds_ = other.bounds_;
  exceedsSize_ = other.exceedsSize_;
}

bool operator==(const DisplayList& a, const DisplayList& b) {
  const auto same = [](const auto& left, const auto& right, auto equal) {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i)
      if (!equal(left[i], right[i])) return false;
    return true;
  };
  const auto equal = [](const auto& x, const auto& y) { return x == y; };
  return a.commands_ == b.commands_ && a.values_ == b.values_ && a.bounds_ == b.bounds_ &&
         a.exceedsSize_ == b.exceedsSize_ && same(a.paints_, b.paints_, equal) &&
         same(a.texts_, b.texts_, sameText) && same(a.paths_, b.paths_, equal);
}

}  // namespace toolkit

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/Canvas.h"

namespace toolkit {

/// What one view painted: canvas calls that can be played back any number of times. Made by a
/// Recorder. Clearing and assigning keep the memory, since the same view tends to paint as much
/// the next time.
class DisplayList {
 public:
  bool isEmpty() const { return commands_.empty(); }
  /// What it covers, in the view's coordinates and within its size.
  const platform::Rect& bounds() const { return bounds_; }
  /// Part of it lies outside the view's size and has to be clipped.
  bool exceedsSize() const { return exceedsSize_; }

  void replay(platform::Canvas& canvas) const;
  void clear();
  /// Takes over what `other` holds; a text that is the same as before keeps its cache.
  void assign(const DisplayList& other);

  friend bool operator==(const DisplayList& a, const DisplayList& b);

 private:
  friend class Recorder;

  enum class Op : unsigned char {
    save,
    restore,
    place,
    clip,
    fillRect,
    fillRoundedRect,
    strokeRoundedRect,
    fillEllipse,
    fillPath,
    strokePath,
    text,
  };
  struct Command {
    Op op;
    /// Index of a path or text.
    std::uint32_t item;
    std::uint32_t paint;
    friend bool operator==(const Command&, const Command&) = default;
  };

  /// A vector whose elements keep their own memory when it is cleared.
  template <class T>
  class Pool {
   public:
    std::size_t size() const { return used_; }
    const T& operator[](std::size_t index) const { return items_[index]; }
    T& add() {
      if (used_ == items_.size()) items_.emplace_back();
      return items_[used_++];
    }
    void shrink(std::size_t size) { used_ = size; }

   private:
    std::vector<T> items_;
    std::size_t used_ = 0;
  };
  struct PooledPaint : platform::Paint {
    PooledPaint() : platform::Paint(platform::Color::clear()) {}
    using platform::Paint::operator=;
  };

  std::vector<Command> commands_;
  /// The numbers of all commands, one after the other.
  std::vector<double> values_;
  Pool<PooledPaint> paints_;
  Pool<platform::Path> paths_;
  Pool<platform::TextRun> texts_;
  platform::Rect bounds_;
  bool exceedsSize_ = false;
};

}  // namespace toolkit

#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

#include "platform/AUParameter.h"

namespace quillon {

/// The observers of a parameter tree. `notify` is for any thread, the audio thread included: it
/// takes no lock, waits for nobody and allocates nothing. Adding and removing may wait, and are for
/// any other thread; an observer may add others, but must not remove any.
///
/// Slots live in chunks that are only ever appended, so a notifying thread walks them without
/// protection; a removed observer's slot is used again.
class ObserverList {
 public:
  using Observer = platform::AUParameterTree::Observer;
  using Token = platform::AUParameterObserverToken;

  ObserverList() = default;
  ~ObserverList();
  ObserverList(const ObserverList&) = delete;
  ObserverList& operator=(const ObserverList&) = delete;

  /// An empty observer is not added: null.
  Token add(Observer observer);
  /// Returns when no call of the observer is under way. A null token, or one that was removed
  /// before, does nothing.
  void remove(Token token);
  /// Calls every observer but the one of `originator`.
  void notify(platform::AUParameterAddress address, float value, Token originator) noexcept;

 private:
  struct Slot {
    std::atomic<Observer*> observer{nullptr};
    /// Threads that are calling, or about to look whether they have to call.
    std::atomic<std::uint32_t> callers{0};
    /// Written before `observer` is published, and not while a caller is inside.
    Token token = nullptr;
    /// Guarded by `mutex_`: a slot is free again only when its last caller has left.
    bool taken = false;
  };
  struct Chunk {
    std::array<Slot, 16> slots;
    std::atomic<Chunk*> next{nullptr};
  };

  Slot& freeSlot();

  std::mutex mutex_;
  std::uintptr_t lastToken_ = 0;
  Chunk first_;
};

}  // namespace quillon

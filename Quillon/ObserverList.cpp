#include "Quillon/ObserverList.h"

#include <thread>
#include <utility>

namespace quillon {

ObserverList::~ObserverList() {
  for (Chunk* chunk = &first_; chunk;) {
    for (Slot& slot : chunk->slots) delete slot.observer.load();
    Chunk* next = chunk->next.load();
    if (chunk != &first_) delete chunk;
    chunk = next;
  }
}

ObserverList::Slot& ObserverList::freeSlot() {
  for (Chunk* chunk = &first_;;) {
    for (Slot& slot : chunk->slots)
      if (!slot.taken) return slot;
    Chunk* next = chunk->next.load(std::memory_order_acquire);
    if (!next) {
      next = new Chunk;
      chunk->next.store(next, std::memory_order_release);
    }
    chunk = next;
  }
}

ObserverList::Token ObserverList::add(Observer observer) {
  if (!observer) return nullptr;
  auto owned = std::make_unique<Observer>(std::move(observer));
  const std::lock_guard lock(mutex_);
  Slot& slot = freeSlot();
  slot.taken = true;
  // A number rather than the slot's place, so that an old token never names a new observer.
  slot.token = reinterpret_cast<Token>(++lastToken_);
  slot.observer.store(owned.release());
  return slot.token;
}

void ObserverList::remove(Token token) {
  if (!token) return;
  Slot* found = nullptr;
  std::unique_ptr<Observer> removed;
  {
    const std::lock_guard lock(mutex_);
    for (Chunk* chunk = &first_; chunk && !found; chunk = chunk->next.load())
      for (Slot& slot : chunk->slots)
        if (slot.taken && slot.token == token) found = &slot;
    if (!found) return;
    removed.reset(found->observer.exchange(nullptr));
    // Another thread is removing it right now.
    if (!removed) return;
  }
  // In one total order with notify: whoever counted itself in before the exchange is seen here, and
  // whoever does so after it finds no observer.
  while (found->callers.load() != 0) std::this_thread::yield();
  const std::lock_guard lock(mutex_);
  found->taken = false;
}

void ObserverList::notify(platform::AUParameterAddress address, float value,
                          Token originator) noexcept {
  for (Chunk* chunk = &first_; chunk; chunk = chunk->next.load(std::memory_order_acquire)) {
    for (Slot& slot : chunk->slots) {
      if (!slot.observer.load(std::memory_order_acquire)) continue;
      slot.callers.fetch_add(1);
      const Observer* observer = slot.observer.load();
      if (observer && (!originator || slot.token != originator)) (*observer)(address, value);
      slot.callers.fetch_sub(1);
    }
  }
}

}  // namespace quillon

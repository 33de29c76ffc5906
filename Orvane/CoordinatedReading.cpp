#include "Orvane/CoordinatedReading.h"

#include <utility>

#include "foundation/DispatchQueue.h"

namespace orvane {

namespace {

struct Reading : std::enable_shared_from_this<Reading> {
  std::shared_ptr<platform::CloudStorage> cloud;
  std::vector<std::string> items;
  std::function<bool(const std::string&)> wants;
  CoordinatedReading::Accessor accessor;
  std::size_t next = 0;

  void step() {
    while (next < items.size() && !wants(items[next])) ++next;
    if (next == items.size()) return;
    const std::string& item = items[next++];
    cloud->coordinateReading(
        item, [self = shared_from_this(), &item](const std::optional<std::string>& path) {
          self->accessor(item, path);
          // From the queue again: a long folder would be a deep recursion otherwise.
          foundation::DispatchQueue::globalAsync([self] { self->step(); });
        });
  }
};

}  // namespace

void CoordinatedReading::start(std::shared_ptr<platform::CloudStorage> cloud,
                               std::vector<std::string> items,
                               std::function<bool(const std::string&)> wants, Accessor accessor) {
  const auto reading = std::make_shared<Reading>();
  reading->cloud = std::move(cloud);
  reading->items = std::move(items);
  reading->wants = std::move(wants);
  reading->accessor = std::move(accessor);
  foundation::DispatchQueue::globalAsync([reading] { reading->step(); });
}

}  // namespace orvane

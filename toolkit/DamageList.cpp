#include "toolkit/DamageList.h"

#include <utility>

namespace toolkit {

using platform::Rect;

void DamageList::add(Rect area) {
  if (area.isEmpty()) return;
  for (std::size_t i = 0; i < areas_.size();) {
    if (!areas_[i].intersects(area)) {
      ++i;
      continue;
    }
    if (areas_[i].contains(area)) return;
    // The union may reach areas that were looked at before.
    area = area.unionWith(areas_[i]);
    areas_[i] = areas_.back();
    areas_.pop_back();
    i = 0;
  }
  if (areas_.size() < limit) {
    areas_.push_back(area);
    return;
  }
  const auto size = [](const Rect& r) { return r.width * r.height; };
  std::size_t best = 0;
  double minGrowth = 0;
  for (std::size_t i = 0; i < areas_.size(); ++i) {
    const double growth = size(areas_[i].unionWith(area)) - size(areas_[i]);
    if (i == 0 || growth < minGrowth) {
      best = i;
      minGrowth = growth;
    }
  }
  const Rect joined = areas_[best].unionWith(area);
  areas_[best] = areas_.back();
  areas_.pop_back();
  add(joined);
}

std::vector<Rect> DamageList::take() { return std::exchange(areas_, {}); }

}  // namespace toolkit

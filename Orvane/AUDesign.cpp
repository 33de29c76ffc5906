#include "Orvane/AUDesign.h"

namespace orvane {

std::vector<std::shared_ptr<Page>> AUDesign::pages() const {
  return {std::make_shared<Page>(std::vector<UISection>{}, "")};
}

std::vector<std::shared_ptr<kestroui::ParamKey>> AUDesign::paramKeys() const { return {}; }

}  // namespace orvane

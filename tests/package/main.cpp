#include "foundation/RunLoop.h"

#include "foundation/DispatchQueue.h"

namespace {

class StoppedClock : public foundation::RunLoop::Driver {
 public:
  double now() const override { return 0; }
  void wake() override {}
  void scheduleChanged() override {}
};

}  // namespace

int main() {
  StoppedClock clock;
  foundation::RunLoop loop(clock);
  bool ran = false;
  foundation::DispatchQueue::mainAsync([&ran] { ran = true; });
  loop.runDue();
  return ran ? 0 : 1;
}

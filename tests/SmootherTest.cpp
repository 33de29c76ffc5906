// Gliding values: they take their time, arrive exactly and leave no denormal numbers behind.

#include "Quillon/Smoother.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Quillon/DenormalGuard.h"

namespace {

using quillon::Smoother;
using Shape = Smoother::Shape;

TEST(SmootherTest, ALinearGlideTakesItsTimeInEqualSteps) {
  Smoother smoother;
  smoother.reset(1000, 0.004, 1);
  smoother.setTarget(3);
  EXPECT_FLOAT_EQ(smoother.next(), 1.5f);
  EXPECT_FLOAT_EQ(smoother.next(), 2.0f);
  EXPECT_TRUE(smoother.isMoving());
  smoother.next();
  EXPECT_EQ(smoother.next(), 3);
  EXPECT_FALSE(smoother.isMoving());
  EXPECT_EQ(smoother.next(), 3);
}

TEST(SmootherTest, AnExponentialGlideIsAtOnePercentAfterItsTime) {
  Smoother smoother(Shape::exponential);
  smoother.reset(1000, 0.1, 1);
  smoother.setTarget(0);
  for (int i = 0; i < 100; ++i) smoother.next();
  EXPECT_NEAR(smoother.current(), 0.01f, 1e-4f);
  while (smoother.isMoving())
    EXPECT_TRUE(smoother.next() == 0 || std::isnormal(smoother.current()));
  EXPECT_EQ(smoother.current(), 0);
}

TEST(SmootherTest, ANewTargetStartsFromWhereItIs) {
  for (Shape shape : {Shape::linear, Shape::exponential}) {
    Smoother smoother(shape);
    smoother.reset(1000, 0.01, 0);
    smoother.setTarget(1);
    float last = 0;
    for (int i = 0; i < 5; ++i) last = smoother.next();
    smoother.setTarget(-1);
    EXPECT_LT(std::abs(smoother.next() - last), 0.8f);
    for (int i = 0; i < 30; ++i) smoother.next();
    EXPECT_EQ(smoother.current(), -1);
  }
}

TEST(SmootherTest, SkippingEqualsSteppingOneByOne) {
  for (Shape shape : {Shape::linear, Shape::exponential})
    for (unsigned samples : {0u, 1u, 7u, 19u, 20u, 1000u}) {
      Smoother stepped(shape), skipped(shape);
      for (Smoother* smoother : {&stepped, &skipped}) {
        smoother->reset(1000, 0.01, 2);
        smoother->setTarget(5);
      }
      for (unsigned i = 0; i < samples; ++i) stepped.next();
      EXPECT_NEAR(skipped.skip(samples), stepped.current(), 1e-4f);
      EXPECT_EQ(skipped.isMoving(), stepped.isMoving());
    }
}

TEST(SmootherTest, WithoutATimeItJumpsAndWhatIsNoNumberIsIgnored) {
  Smoother smoother;
  smoother.setTarget(2);
  EXPECT_EQ(smoother.next(), 2);
  smoother.reset(48000, 0, 1);
  smoother.setTarget(4);
  EXPECT_EQ(smoother.next(), 4);
  smoother.setTarget(std::nanf(""));
  smoother.setTarget(std::numeric_limits<float>::infinity());
  EXPECT_EQ(smoother.next(), 4);
}

#if defined(__SSE__) || defined(__aarch64__)
TEST(DenormalGuardTest, DenormalNumbersAreZeroOnlyWhileItLives) {
  volatile float small = std::numeric_limits<float>::min();
  volatile float half = 0.5f;
  {
    const quillon::DenormalGuard guard;
    volatile float product = small * half;
    EXPECT_TRUE(product == 0);
  }
  volatile float product = small * half;
  EXPECT_TRUE(product > 0);
}
#endif

}  // namespace

#include <cmath>
#include <semaphore>
#include <thread>

#include "benchmarks/EventLoop.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Rows.h"
#include "tests/support/AllocationCounter.h"

namespace bench {
namespace {

/// The thread that sets values, as the audio thread would. It runs one job at a time, and the
/// message thread waits for the end without turning its loop.
class Poster {
 public:
  ~Poster() {
    job_ = nullptr;
    start_.release();
    thread_.join();
  }

  void run(std::function<void()> job) {
    job_ = std::move(job);
    start_.release();
    done_.acquire();
  }

 private:
  std::function<void()> job_;
  std::binary_semaphore start_{0}, done_{0};
  std::thread thread_{[this] {
    for (;;) {
      start_.acquire();
      if (!job_) return;
      job_();
      done_.release();
    }
  }};
};

struct Posting {
  double nanoseconds = 0;
  double allocations = 0;
};

/// The mean of a burst of changes that go round all parameters.
template <class Set>
Posting posting(Poster& poster, Set set) {
  constexpr int posts = 1000;
  Posting result;
  poster.run([&] {
    const support::AllocationCounter counter;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < posts; ++i) set(i % twoHundred.count(), static_cast<float>(i) / posts);
    const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - start;
    result = {took.count() / posts, static_cast<double>(counter.count())};
  });
  return result;
}

void addPosting(Report& report, OurSide& ours, StockSide& stock) {
  Poster poster;
  double ourAllocations = 0, stockAllocations = 0;
  const int last = twoHundred.count() - 1;
  const Medians ns = interleaved(
      50,
      [&] {
        const Posting p = posting(poster, [&](int index, float value) {
          ours.unit.parameterTree().at(static_cast<std::size_t>(index)).setValue(value);
        });
        ourAllocations = p.allocations;
        runLoopUntil([&] { return ours.editor->knob(last).value() > 0.99f; });
        ours.editor->knob(last).setValue(0);
        return p.nanoseconds;
      },
      [&] {
        const juce::Array<juce::AudioProcessorParameter*>& all = stock.processor.getParameters();
        const Posting p = posting(poster, [&](int index, float value) {
          all.getUnchecked(index)->setValueNotifyingHost(value);
        });
        stockAllocations = p.allocations;
        juce::Slider& slider = stock.editor->slider(last);
        runLoopUntil([&] { return slider.getValue() > 0.99; });
        slider.setValue(0, juce::dontSendNotification);
        return p.nanoseconds;
      });
  report.add({.key = "postAllocations",
              .title = "allocations in 1,000 changes on the posting thread",
              .ours = ourAllocations,
              .stock = stockAllocations,
              .goal = 0,
              .goalFor = Row::Goal::figure});
  report.add({.key = "post",
              .title = "a change on the posting thread (machine-dependent)",
              .unit = "ns",
              .ours = ns.ours,
              .stock = ns.stock,
              .goal = 0.2});
}

void addArriving(Report& report, OurSide& ours, StockSide& stock) {
  Poster poster;
  int turn = 0;
  const auto next = [&turn] {
    ++turn;
    return std::pair(turn % twoHundred.count(), benchValue(turn + 50));
  };
  const Medians us = interleaved(
      400,
      [&] {
        const auto [index, value] = next();
        platform::AUParameter& parameter =
            ours.unit.parameterTree().at(static_cast<std::size_t>(index));
        kestroui::Container& knob = ours.editor->knob(index);
        const float wanted = value;
        poster.run([&parameter, wanted] { parameter.setValue(wanted); });
        return 1000 * worked([&] { runLoopUntil([&] { return knob.value() == wanted; }); });
      },
      [&] {
        const auto [index, value] = next();
        juce::AudioProcessorParameter* parameter = stock.processor.getParameters()[index];
        juce::Slider& slider = stock.editor->slider(index);
        const float wanted = value;
        poster.run([parameter, wanted] { parameter->setValueNotifyingHost(wanted); });
        return 1000 * worked([&] {
                 runLoopUntil([&] { return std::abs(slider.getValue() - wanted) < 0.001; });
               });
      });
  report.add({.key = "change",
              .title = "a change from another thread to the moved control",
              .unit = "us",
              .ours = us.ours,
              .stock = us.stock,
              .goal = 0.4});
}

}  // namespace

void addValueRows(Report& report) {
  OurSide ours;
  StockSide stock;
  ours.open();
  stock.open();
  addArriving(report, ours, stock);
  addPosting(report, ours, stock);
}

}  // namespace bench

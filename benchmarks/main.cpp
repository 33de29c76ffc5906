// Our editor against a stock JUCE editor of the same knobs, both painted by JUCE's software renderer
// in windows that need no display. Times are the message thread's own work, medians of measurements
// that take turns. It only informs: a goal that is missed fails nothing.

#include <cstdio>
#include <cstring>

#include "benchmarks/Rows.h"

int main(int argc, char** argv) {
  const bool writesJson = argc == 3 && std::strcmp(argv[1], "--json") == 0;
  if (argc != 1 && !writesJson) {
    std::fprintf(stderr, "usage: orvane_bench [--json FILE]\n");
    return 2;
  }
  const juce::ScopedJuceInitialiser_GUI juce;
  bench::Report report;
  report.printHead();
  bench::addEditorRows(report);
  bench::addPaintingRows(report);
  bench::addMixedRows(report);
  bench::addValueRows(report);
  bench::addPresetRows(report);
  if (writesJson && !report.writeJson(argv[2])) {
    std::fprintf(stderr, "orvane_bench: cannot write %s\n", argv[2]);
    return 1;
  }
  return 0;
}

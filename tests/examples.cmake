orvane_add_tests(examples
  SOURCES
    AccessibilityTest.cpp
    GalleryTest.cpp
    HaldenDesignTest.cpp
    HaldenDspTest.cpp
    HaldenMonitorTest.cpp
    HaldenPresetsTest.cpp
    HaldenTest.cpp
    SelvikTest.cpp
    TypedRoadTest.cpp
    support/AllocationCounter.cpp
  DEPENDS orvane::gallery orvane::halden orvane::selvik orvane::headless orvane::toolkit
    orvane::foundation Threads::Threads)

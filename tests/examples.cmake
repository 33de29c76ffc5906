orvane_add_tests(examples
  SOURCES
    AccessibilityTest.cpp
    GalleryTest.cpp
    HaldenDesignTest.cpp
    HaldenDspTest.cpp
    HaldenMonitorTest.cpp
    HaldenPresetsTest.cpp
    HaldenTest.cpp
    RenderGuardTest.cpp
    SelvikTest.cpp
    TypedRoadTest.cpp
    support/AllocationCounter.cpp
    ../examples/Gain/Gain.cpp
  DEPENDS orvane::gallery orvane::halden orvane::selvik orvane::headless orvane::toolkit
    orvane::foundation Threads::Threads)

orvane_add_tests(headless
  SOURCES
    HeadlessHostTest.cpp
    HeadlessRunLoopTest.cpp
    RecordingCanvasTest.cpp
  DEPENDS orvane::headless orvane::quillon orvane::foundation)

orvane_add_tests(foundation
  SOURCES
    PropertyListCodingTest.cpp
    RealtimePortTest.cpp
    RunLoopTest.cpp
    support/AllocationCounter.cpp
  DEPENDS orvane::foundation Threads::Threads)

orvane_add_tests(examples
  SOURCES
    HaldenDesignTest.cpp
    HaldenDspTest.cpp
    HaldenTest.cpp
    support/AllocationCounter.cpp
  DEPENDS orvane::halden orvane::toolkit orvane::foundation Threads::Threads)

orvane_add_tests(formats
  SOURCES HostStateTest.cpp InstancesTest.cpp support/AllocationCounter.cpp
  DEPENDS orvane::juce orvane::lv2 orvane::gallery orvane::halden orvane::selvik orvane::quillon
    orvane::foundation)

orvane_add_tests(quillon
  SOURCES
    CommonAudioUnitTest.cpp
    FilterResponseTest.cpp
    LiveRingTest.cpp
    MidiMessageTest.cpp
    ParameterTextTest.cpp
    ParameterTreeTest.cpp
    SmootherTest.cpp
    support/AllocationCounter.cpp
  DEPENDS orvane::quillon Threads::Threads)

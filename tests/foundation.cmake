orvane_add_tests(foundation
  SOURCES
    DispatchQueueTest.cpp
    LocalFileManagerTest.cpp
    PropertyListCodingTest.cpp
    RealtimePortTest.cpp
    RunLoopTest.cpp
    UserDefaultsTest.cpp
    support/AllocationCounter.cpp
  DEPENDS orvane::foundation Threads::Threads)

orvane_add_tests(juce
  SOURCES
    AccessibleEditorTest.cpp
    AudioUnitParameterTest.cpp
    FileExportTest.cpp
    FilePanelTest.cpp
    JuceCanvasTest.cpp
    JuceEditorTest.cpp
    JuceLinkTest.cpp
    JucePresentationTest.cpp
    JuceProcessorTest.cpp
    JuceRunLoopTest.cpp
    JuceWindowTest.cpp
    support/AllocationCounter.cpp
  DEPENDS orvane::juce orvane::quillon Threads::Threads)

orvane_add_tests(desktop ON_DISPLAY
  SOURCES StandaloneTest.cpp
  DEPENDS orvane::juce orvane::quillon)

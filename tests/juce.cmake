orvane_add_tests(juce
  SOURCES
    AccessibleEditorTest.cpp
    AudioUnitParameterTest.cpp
    AutomatedComponentTest.cpp
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

target_include_directories(test_juce SYSTEM PRIVATE
  $<TARGET_PROPERTY:juce_vst3_headers,INTERFACE_INCLUDE_DIRECTORIES>)

orvane_add_tests(desktop ON_DISPLAY
  SOURCES StandaloneTest.cpp
  DEPENDS orvane::juce orvane::quillon)

orvane_add_tests(orvane
  SOURCES
    AUFilterViewContainerTest.cpp
    ControlConstructionTest.cpp
    ControllerLifecycleTest.cpp
    DSPParametersTest.cpp
    DesignModelTest.cpp
    DisplayBindingTest.cpp
    EditorLifeTest.cpp
    MidiLearnTest.cpp
    MultiSelectableTest.cpp
    OverlayPanelsTest.cpp
    PageLayoutTest.cpp
    SectionViewTest.cpp
    ShapeRoadTest.cpp
    ValueRoadTest.cpp
  DEPENDS orvane::orvane orvane::quillon orvane::toolkit orvane::foundation Threads::Threads)

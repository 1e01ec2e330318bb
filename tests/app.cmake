# What the tests of the program share: the delegate on a real window, off-screen, with fakes for the desktop.
add_library(app-test-support STATIC
    support/AppFixture.cpp
    support/AppFixture.h
    support/DateGuards.cpp
    support/DateGuards.h
    support/FakeHost.h
    support/app_main.cpp
)
target_link_libraries(app-test-support PUBLIC velumora-app Qt6::Test GTest::gmock)
target_include_directories(app-test-support PUBLIC ${CMAKE_SOURCE_DIR}/tests)

velumora_test(app-tests
    app/alert_test.cpp
    app/lifecycle_test.cpp
    app/mini_calendar_test.cpp
    app/note_deletion_test.cpp
    app/note_editing_test.cpp
    app/notes_list_test.cpp
    LIBRARIES app-test-support
    LABELS app)

# Tests that start a built program on a display of their own and use it as a person would. Debian's own Python runs them:
# the accessibility bindings are made for it.
add_executable(bare-window desktop/bare_window.cpp)
target_link_libraries(bare-window PRIVATE velumora-compile Qt6::Widgets)

# desktop_test(NAME PROGRAM target): runs desktop/NAME.py on the program of that target.
function(desktop_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "PROGRAM" "")
    add_test(NAME ${name} COMMAND /usr/bin/python3 -B -W ignore::DeprecationWarning ${CMAKE_CURRENT_LIST_DIR}/desktop/${name}.py)
    set_tests_properties(${name} PROPERTIES LABELS desktop TIMEOUT 300
        ENVIRONMENT "PYTHONPATH=${CMAKE_CURRENT_LIST_DIR}/support;TEST_PROGRAM=$<TARGET_FILE:${test_PROGRAM}>;TEST_PICTURES=${CMAKE_BINARY_DIR}/pictures")
endfunction()

desktop_test(driver_test PROGRAM bare-window)
desktop_test(appearance_test PROGRAM velumora)
desktop_test(draft_test PROGRAM velumora)
desktop_test(first_day_test PROGRAM velumora)
desktop_test(important_dates_test PROGRAM velumora)
desktop_test(lost_compositor_test PROGRAM velumora)
desktop_test(lost_display_test PROGRAM velumora)
desktop_test(locale_test PROGRAM velumora)
set_tests_properties(locale_test PROPERTIES TIMEOUT 900) # each locale on a display and off
desktop_test(reminder_agent_peers_test PROGRAM velumora-reminder-agent)
if(NOT VELUMORA_SANITIZERS)
    set_property(TEST reminder_agent_peers_test APPEND PROPERTY ENVIRONMENT TEST_MEMORY=536870912)
endif()
desktop_test(reminder_agent_test PROGRAM velumora-reminder-agent)
desktop_test(reminders_test PROGRAM velumora)
set_property(TEST reminders_test APPEND PROPERTY ENVIRONMENT TEST_COVER=$<TARGET_FILE:bare-window>)
desktop_test(menu_test PROGRAM velumora)
desktop_test(pages_test PROGRAM velumora)
desktop_test(screen_reader_test PROGRAM velumora)
desktop_test(start_test PROGRAM velumora)
desktop_test(web_page_test PROGRAM velumora)
desktop_test(writing_test PROGRAM velumora)
set_tests_properties(writing_test PROPERTIES TIMEOUT 900) # every key in every field, and four fonts at two scales
desktop_test(window_test PROGRAM velumora)

# The longest ones begin, so that none is left over when all the others are done.
foreach(test writing_test draft_test reminders_test reminder_agent_peers_test locale_test first_day_test reminder_agent_test)
    set_property(TEST ${test} PROPERTY COST 100)
endforeach()

# The program, told to look for new versions on a server of the test. The port is one of this build's own.
string(MD5 build_digest "${CMAKE_BINARY_DIR}")
string(SUBSTRING ${build_digest} 0 4 build_digest)
math(EXPR version_port "20000 + 0x${build_digest} % 10000")
add_executable(velumora-on-loopback ${CMAKE_SOURCE_DIR}/app/main.cpp)
target_link_libraries(velumora-on-loopback PRIVATE velumora-app velumora-host-linux)
target_compile_definitions(velumora-on-loopback PRIVATE VELUMORA_VERSION_SERVER="http://127.0.0.1:${version_port}")
desktop_test(version_check_test PROGRAM velumora-on-loopback)
set_property(TEST version_check_test APPEND PROPERTY ENVIRONMENT "TEST_VERSION_PORT=${version_port}")
desktop_test(location_test PROGRAM velumora)

# What is handed to others: not what is built with sanitizers, for counting coverage or unoptimised.
if(NOT VELUMORA_SANITIZERS AND NOT VELUMORA_COVERAGE AND NOT CMAKE_BUILD_TYPE STREQUAL Debug)
    add_test(NAME hardening COMMAND hardening-check $<TARGET_FILE:velumora> $<TARGET_FILE:velumora-reminder-agent>)
    desktop_test(installed_test PROGRAM velumora)
    set_property(TEST installed_test APPEND PROPERTY ENVIRONMENT
        "TEST_BUILD=${CMAKE_BINARY_DIR};TEST_SOURCE=${CMAKE_SOURCE_DIR}")
endif()

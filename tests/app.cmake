# What the tests of the program share: the delegate on a real window, off-screen, with fakes for the desktop.
add_library(app-test-support STATIC
    support/AppFixture.cpp
    support/AppFixture.h
    support/Contrast.h
    support/FakeHost.h
    support/FontGuard.h
    support/HeardEvents.h
    support/LoopbackServer.h
    support/PinnedFonts.h
    support/Pixels.h
    support/PrivateBus.cpp
    support/PrivateBus.h
    support/Screenshot.cpp
    support/Screenshot.h
    support/ScriptFonts.h
    support/StandInGeoClue.cpp
    support/StandInGeoClue.h
    support/StandInInputMethod.h
    support/StandInLogind.cpp
    support/StandInLogind.h
    support/TranslationGuard.cpp
    support/TranslationGuard.h
    support/app_main.cpp
)
target_link_libraries(app-test-support PUBLIC date-test-support velumora-app velumora-host-bus velumora-host-linux velumora-host-web velumora-print
    Qt6::Network Qt6::GuiPrivate Qt6::Test GTest::gmock)
target_include_directories(app-test-support PUBLIC ${CMAKE_SOURCE_DIR}/tests)
velumora_precompile(app-test-support ${VELUMORA_APP_HEADERS} <QSignalSpy> <QTest> <gmock/gmock.h> <gtest/gtest.h>)
set_source_files_properties(support/Screenshot.cpp PROPERTIES COMPILE_DEFINITIONS
    VELUMORA_SCREENSHOTS="${CMAKE_BINARY_DIR}/screenshots")

# The important dates, their holidays and the notes made from them.
velumora_test(important-dates-tests
    app/date_notes_test.cpp
    app/date_picker_test.cpp
    app/holiday_sheet_test.cpp
    app/important_dates_test.cpp
    LIBRARIES app-test-support
    LABELS app
    SHARDS 2)

# What keeps the user's words when a save fails, the program is killed or the machine ends.
velumora_test(saving-tests
    app/draft_test.cpp
    app/saving_test.cpp
    app/bus_peers_test.cpp
    app/shutdown_monitor_test.cpp
    LIBRARIES app-test-support
    LABELS app
    SHARDS 2)

# Scripts in print. A program of its own: which fonts have a letter is kept once somebody asked for it without them.
velumora_test(print-tests
    app/printed_scripts_test.cpp
    LIBRARIES app-test-support
    LABELS app
    SHARDS 1)

# Where the user is, and the line of sunrise and sunset.
velumora_test(location-tests
    app/desktop_location_test.cpp
    app/location_test.cpp
    app/place_preference_test.cpp
    LIBRARIES app-test-support
    LABELS app
    SHARDS 2)

# The pages in other calendars, languages and zones.
velumora_test(locale-tests
    app/left_out_days_test.cpp
    app/locale_calendars_test.cpp
    app/page_names_test.cpp
    LIBRARIES app-test-support
    LABELS app
    SHARDS 3)

velumora_test(app-tests
    app/alert_test.cpp
    app/appearance_test.cpp
    app/contrast_test.cpp
    app/dock_icon_test.cpp
    app/editing_keys_test.cpp
    app/forged_messages_test.cpp
    app/help_test.cpp
    app/hidden_notes_test.cpp
    app/host_test.cpp
    app/keyboard_test.cpp
    app/legacy_import_test.cpp
    app/lifecycle_test.cpp
    app/linux_host_test.cpp
    app/menu_test.cpp
    app/mini_calendar_test.cpp
    app/monthly_print_test.cpp
    app/monthly_view_test.cpp
    app/note_deletion_test.cpp
    app/note_editing_test.cpp
    app/note_field_test.cpp
    app/notes_list_test.cpp
    app/open_panel_test.cpp
    app/painted_days_test.cpp
    app/preferences_test.cpp
    app/private_settings_test.cpp
    app/reminders_test.cpp
    app/screen_reader_test.cpp
    app/single_instance_test.cpp
    app/store_test.cpp
    app/temporary_folder_test.cpp
    app/text_size_test.cpp
    app/weekly_view_test.cpp
    app/version_check_test.cpp
    app/web_version_server_test.cpp
    app/window_place_test.cpp
    app/workspace_test.cpp
    LIBRARIES app-test-support
    LABELS app
    SHARDS 8)

set_source_files_properties(app/help_test.cpp PROPERTIES COMPILE_DEFINITIONS VELUMORA_WEB_PAGE="${VELUMORA_WEB_PAGE}")

# The texts of the program and the room they have; with a catalogue of their own, of a language written from right to left.
velumora_test(language-tests
    app/catalogue_test.cpp
    app/help_pages_test.cpp
    app/translation_test.cpp
    app/window_fit_test.cpp
    LIBRARIES app-test-support
    LABELS app
    SHARDS 3)
velumora_link_resources(language-tests)
qt_add_lrelease(language-tests
    TS_FILES data/translations/velumora_ug.ts
    QM_FILES_OUTPUT_VARIABLE test_catalogues)
qt_add_resources(language-tests test_translations
    PREFIX /translations
    BASE ${CMAKE_CURRENT_BINARY_DIR}
    FILES ${test_catalogues})
set_source_files_properties(app/catalogue_test.cpp app/help_pages_test.cpp app/web_version_server_test.cpp PROPERTIES COMPILE_DEFINITIONS
    VELUMORA_SOURCE_DIR="${CMAKE_SOURCE_DIR}")

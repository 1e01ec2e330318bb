set(VELUMORA_WEB_PAGE "https://velumora.invalid/" CACHE STRING
    "The product's web page; the default resolves nowhere")
set(VELUMORA_VERSION_SERVER "https://velumora.invalid" CACHE STRING
    "Scheme and host of the web server that tells the newest version; the default resolves nowhere")

# Texts of layouts come from the same catalogue, in the same context, as those of the code.
set_target_properties(velumora-app PROPERTIES
    AUTOUIC ON
    AUTOUIC_OPTIONS "--tr;localized;--include;text/Localized.h"
    AUTOUIC_SEARCH_PATHS "${CMAKE_SOURCE_DIR}/resources")
target_include_directories(velumora-app PUBLIC ${CMAKE_BINARY_DIR}/velumora-app_autogen/include)
set_source_files_properties(app/AppDelegate+Help.cpp PROPERTIES COMPILE_DEFINITIONS
    VELUMORA_WEB_PAGE="${VELUMORA_WEB_PAGE}")

# velumora_link_resources(TARGET): beside the program, for as long as it is not installed (see InstalledBundle.h).
function(velumora_link_resources target)
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM COMMAND ${CMAKE_COMMAND} -E create_symlink
        ${CMAKE_SOURCE_DIR}/resources $<TARGET_FILE_DIR:${target}>/velumora-resources)
endfunction()

target_sources(velumora-app PRIVATE
    app/AppDelegate+Alerts.cpp
    app/AppDelegate+Appearance.cpp
    app/AppDelegate+DateNotes.cpp
    app/AppDelegate+DockIcon.cpp
    app/AppDelegate+Draft.cpp
    app/AppDelegate+Help.cpp
    app/AppDelegate+HiddenNotes.cpp
    app/AppDelegate+HolidaySheet.cpp
    app/AppDelegate+ImportantDates.cpp
    app/AppDelegate+LegacyImport.cpp
    app/AppDelegate+Lifecycle.cpp
    app/AppDelegate+Location.cpp
    app/AppDelegate+Menu.cpp
    app/AppDelegate+MiniCalendar.cpp
    app/AppDelegate+MonthlyPrint.cpp
    app/AppDelegate+MonthlyView.cpp
    app/AppDelegate+NoteEditing.cpp
    app/AppDelegate+NotesList.cpp
    app/AppDelegate+PlacePreference.cpp
    app/AppDelegate+Preferences.cpp
    app/AppDelegate+Reminders.cpp
    app/AppDelegate+SaveFailure.cpp
    app/AppDelegate+ScreenReader.cpp
    app/AppDelegate+Store.cpp
    app/AppDelegate+VersionCheck.cpp
    app/AppDelegate+WeeklyView.cpp
    app/AppDelegate.cpp
    app/AppDelegate.h
    app/EnteredPlace.cpp
    app/EnteredPlace.h
    app/PreferenceKeys.h
    app/Translations.cpp
    app/Translations.h
)

add_executable(velumora app/main.cpp)
target_link_libraries(velumora PRIVATE velumora-app)
velumora_link_resources(velumora)
target_compile_definitions(velumora PRIVATE VELUMORA_VERSION_SERVER="${VELUMORA_VERSION_SERVER}")
add_dependencies(velumora velumora-reminder-agent)

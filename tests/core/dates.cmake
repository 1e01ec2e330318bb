velumora_test(date-tests
    core/dates_calendars_test.cpp
    core/dates_degrees_text_test.cpp
    core/dates_elapsed_test.cpp
    core/dates_environment_test.cpp
    core/dates_formatter_test.cpp
    core/dates_integer_value_test.cpp
    core/dates_month_grid_test.cpp
    core/dates_sun_times_test.cpp
    core/dates_utilities_test.cpp
    core/dates_zone_place_test.cpp
    core/dates_zones_test.cpp
    core/holidays_easter_test.cpp
    core/holidays_test.cpp
    support/DateGuards.cpp
    support/DateGuards.h
    LABELS core
)

velumora_test(date-tests
    core/dates_calendars_test.cpp
    core/dates_degrees_text_test.cpp
    core/dates_elapsed_test.cpp
    core/dates_environment_test.cpp
    core/dates_formatter_test.cpp
    core/dates_integer_value_test.cpp
    core/dates_month_grid_test.cpp
    core/dates_names_test.cpp
    core/dates_sun_times_test.cpp
    core/dates_utilities_test.cpp
    core/dates_week_test.cpp
    core/dates_zone_place_test.cpp
    core/dates_zones_test.cpp
    core/holidays_easter_test.cpp
    core/day_text_test.cpp
    core/holidays_test.cpp
    core/locale_environment_test.cpp
    core/paper_size_test.cpp
    support/DateGuards.cpp
    support/DateGuards.h
    LABELS core
    SHARDS 4)

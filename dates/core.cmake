target_sources(velumora-core PRIVATE
    dates/Clock.cpp
    dates/Clock.h
    dates/Coordinate.h
    dates/Date.h
    dates/DateFormatter.cpp
    dates/DateFormatter.h
    dates/DateUtilities.cpp
    dates/DateUtilities.h
    dates/DayText.cpp
    dates/DayText.h
    dates/DegreesText.cpp
    dates/DegreesText.h
    dates/ElapsedDate.cpp
    dates/ElapsedDate.h
    dates/Holidays.cpp
    dates/Holidays.h
    dates/IcuTypes.h
    dates/SunTimes.cpp
    dates/SunTimes.h
    dates/SystemTimeZone.cpp
    dates/SystemTimeZone.h
    dates/ZonePlace.cpp
    dates/ZonePlace.h
)

# The same times on every processor: no multiplication and addition in one rounding.
set_source_files_properties(dates/SunTimes.cpp PROPERTIES COMPILE_OPTIONS -ffp-contract=off)

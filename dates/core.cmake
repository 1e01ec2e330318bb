target_sources(velumora-core PRIVATE
    dates/Coordinate.h
    dates/DegreesText.cpp
    dates/DegreesText.h
    dates/SunTimes.cpp
    dates/SunTimes.h
    dates/ZonePlace.cpp
    dates/ZonePlace.h
)

# The same times on every processor: no multiplication and addition in one rounding.
set_source_files_properties(dates/SunTimes.cpp PROPERTIES COMPILE_OPTIONS -ffp-contract=off)

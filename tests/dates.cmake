include(core/dates.cmake)

target_sources(velumora-core PRIVATE
    calendar/MonthGrid.cpp
    calendar/MonthGrid.h
    calendar/Week.cpp
    calendar/Week.h
)

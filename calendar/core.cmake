target_sources(velumora-core PRIVATE
    calendar/MonthGrid.cpp
    calendar/MonthGrid.h
)

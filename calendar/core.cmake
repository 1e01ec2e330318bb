target_sources(velumora-core PRIVATE
    calendar/MonthGrid.cpp
    calendar/MonthGrid.h
    calendar/PaperSize.cpp
    calendar/PaperSize.h
    calendar/Week.cpp
    calendar/Week.h
)

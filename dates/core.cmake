target_sources(velumora-core PRIVATE
    dates/Clock.cpp
    dates/Clock.h
    dates/Date.h
    dates/DateFormatter.cpp
    dates/DateFormatter.h
    dates/DateUtilities.cpp
    dates/DateUtilities.h
    dates/ElapsedDate.cpp
    dates/ElapsedDate.h
    dates/Holidays.cpp
    dates/Holidays.h
    dates/IcuTypes.h
    dates/IntegerValue.cpp
    dates/IntegerValue.h
    dates/SystemTimeZone.cpp
    dates/SystemTimeZone.h
)

target_sources(velumora-core PRIVATE
    dates/Clock.h
    dates/Date.h
)

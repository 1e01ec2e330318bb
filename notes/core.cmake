target_sources(velumora-core PRIVATE
    notes/RowHeights.cpp
    notes/RowHeights.h
)

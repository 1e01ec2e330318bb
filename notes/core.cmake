target_sources(velumora-core PRIVATE
    notes/NoteQueries.cpp
    notes/NoteQueries.h
    notes/NoteSorting.cpp
    notes/NotesChoice.cpp
    notes/NotesChoice.h
    notes/RowHeights.cpp
    notes/RowHeights.h
    notes/SortDescriptor.h
)

target_sources(velumora-core PRIVATE
    notes/BytePairs.cpp
    notes/BytePairs.h
    notes/FoldSources.cpp
    notes/FoldSources.h
    notes/NoteQueries.cpp
    notes/NoteQueries.h
    notes/NoteSorting.cpp
    notes/PlainCharacters.cpp
    notes/PlainCharacters.h
    notes/SortDescriptor.h
    notes/TextFolding.cpp
    notes/TextFolding.h
    notes/TextLines.cpp
    notes/TextLines.h
    notes/TextSearch.cpp
    notes/TextSearch.h
)

target_sources(velumora-app PRIVATE
    notes/SearchField.cpp
    notes/SearchField.h
    notes/ZTRButtonHover.cpp
    notes/ZTRButtonHover.h
    notes/ZTRSeparator.cpp
    notes/ZTRSeparator.h
)

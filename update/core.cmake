target_sources(velumora-core PRIVATE
    update/VersionText.cpp
    update/VersionText.h
)

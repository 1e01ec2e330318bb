target_sources(velumora-core PRIVATE
    store/PropertyList.h
    store/Value.cpp
    store/Value.h
)

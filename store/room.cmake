target_sources(velumora-core PRIVATE
    store/DataFolder.cpp
    store/DataFolder.h
    store/FileStamp.cpp
    store/FileStamp.h
    store/Files.cpp
    store/Files.h
    store/PropertyList.h
    store/Record.cpp
    store/Record.h
    store/Recovered.cpp
    store/Recovered.h
    store/SaveQueue.cpp
    store/SaveQueue.h
    store/Value.cpp
    store/Value.h
)

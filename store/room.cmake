target_sources(velumora-core PRIVATE
    store/BinaryPropertyListReader.cpp
    store/PropertyList.cpp
    store/PropertyList.h
    store/PropertyListDate.cpp
    store/PropertyListParts.h
    store/PropertyListText.cpp
    store/Value.cpp
    store/Value.h
    store/XmlPropertyListReader.cpp
    store/XmlPropertyListWriter.cpp
)

# A room is a folder of sources and a library of its own. Its headers are found only by what links it, so an include
# that goes upward does not compile.

# Targets that only parse the headers shared by the rooms.
file(CONFIGURE OUTPUT common_headers.cpp CONTENT "// Nothing but the headers.\n")
add_library(velumora-core-headers STATIC ${CMAKE_CURRENT_BINARY_DIR}/common_headers.cpp)
target_link_libraries(velumora-core-headers PRIVATE velumora-compile Qt6::Core)
velumora_precompile(velumora-core-headers ${VELUMORA_CORE_HEADERS})
if(VELUMORA_APP)
    add_library(velumora-app-headers STATIC ${CMAKE_CURRENT_BINARY_DIR}/common_headers.cpp)
    target_link_libraries(velumora-app-headers PRIVATE velumora-compile Qt6::Widgets)
    velumora_precompile(velumora-app-headers ${VELUMORA_APP_HEADERS})
endif()

# velumora_layouts(TARGET): the room includes window layouts of resources/. Their texts are translated by the same
# catalogue, in the same context, as those of the code.
function(velumora_layouts target)
    set_target_properties(${target} PROPERTIES
        AUTOUIC ON
        AUTOUIC_OPTIONS "--tr;localized;--include;text/Localized.h"
        AUTOUIC_SEARCH_PATHS "${CMAKE_SOURCE_DIR}/resources")
endfunction()

# velumora_room([AUTOMOC] SOURCES file... [LINKS library...] [PRIVATE library...]): the library velumora-FOLDER of the
# current folder. LINKS are the libraries whose headers its own headers include. AUTOMOC is for a room with Q_OBJECT in
# its sources; moc takes its time, so the others go without.
function(velumora_room)
    cmake_parse_arguments(PARSE_ARGV 0 room AUTOMOC "" "SOURCES;LINKS;PRIVATE")
    file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    string(REPLACE "/" "-" name velumora-${folder})
    add_library(${name} STATIC ${room_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ${room_AUTOMOC})
    target_link_libraries(${name} PUBLIC velumora-compile Qt6::Core ${room_LINKS} PRIVATE ${room_PRIVATE})
    if("Qt6::Widgets" IN_LIST room_LINKS)
        velumora_share_precompiled(${name} velumora-app-headers)
    else()
        velumora_share_precompiled(${name} velumora-core-headers)
    endif()

    set(headers ${CMAKE_BINARY_DIR}/rooms/${name})
    file(REMOVE_RECURSE ${headers})
    file(MAKE_DIRECTORY ${headers}/${folder})
    foreach(source ${room_SOURCES})
        if(source MATCHES "\\.h$")
            file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${source} ${headers}/${folder}/${source} SYMBOLIC)
        endif()
    endforeach()
    target_include_directories(${name} PUBLIC ${headers})
endfunction()

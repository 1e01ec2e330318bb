velumora_test(query-tests
    core/note_queries_test.cpp
    core/text_cutting_test.cpp
    core/text_lines_test.cpp
    core/text_search_test.cpp
    notes/note_book_test.cpp
    support/DateGuards.cpp
    support/DateGuards.h
    support/FixedClock.h
    SHARDS 2)
velumora_test(property-list-tests
    core/hostile_list_test.cpp
    core/property_list_bad_input_test.cpp
    core/property_list_samples.h
    core/property_list_test.cpp
    LABELS core store)
target_compile_definitions(property-list-tests PRIVATE
    PROPERTY_LIST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data/property_list")

# Other programs read what is written.
add_executable(property-list-writer core/property_list_writer.cpp)
target_link_libraries(property-list-writer PRIVATE velumora-core)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME PropertyListOtherPrograms
    COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/core/property_list_other_programs_test.py
        $<TARGET_FILE:property-list-writer>)
set_tests_properties(PropertyListOtherPrograms PROPERTIES LABELS "core;store")

# The picture of the rooms is theirs, and none of them links one above it.
add_test(NAME Layers COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/scripts/layers --check)
set_tests_properties(Layers PROPERTIES LABELS core)

# What the documents name is in the tree.
add_test(NAME Documents COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/core/documents_test.py)
set_tests_properties(Documents PROPERTIES LABELS core)

# Colours are written in look/Colors.h alone.
add_test(NAME Colours COMMAND Python3::Interpreter -B ${CMAKE_CURRENT_LIST_DIR}/core/colours_test.py)
set_tests_properties(Colours PROPERTIES LABELS core)

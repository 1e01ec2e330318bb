velumora_test(store-tests
    core/data_folder_test.cpp
    core/draft_file_test.cpp
    core/draft_test.cpp
    core/file_attributes_test.cpp
    core/files_test.cpp
    core/record_test.cpp
    core/recovered_test.cpp
    core/save_failure_test.cpp
    core/save_queue_test.cpp
    LABELS core store
    SHARDS 2)
target_compile_definitions(store-tests PRIVATE TEST_FOLDER="${CMAKE_CURRENT_BINARY_DIR}")

# The calls that make a save durable, counted: in a program of its own, as it stands in for them.
velumora_test(durability-tests core/durability_test.cpp LABELS core store)
target_compile_definitions(durability-tests PRIVATE TEST_FOLDER="${CMAKE_CURRENT_BINARY_DIR}")

# Tests with other programs that read, write and are killed. The thread sanitizer loses track of locks where processes are
# started; store-tests has the same burst without them.
if(NOT VELUMORA_SANITIZERS MATCHES thread)
    add_executable(store-process core/store_process.cpp)
    target_link_libraries(store-process PRIVATE velumora-core)
    target_include_directories(store-process PRIVATE ${CMAKE_SOURCE_DIR}/tests)

    velumora_test(store-process-tests core/store_process_test.cpp LABELS core store process)
    target_compile_definitions(store-process-tests PRIVATE
        TEST_FOLDER="${CMAKE_CURRENT_BINARY_DIR}" STORE_PROCESS="$<TARGET_FILE:store-process>")
    add_dependencies(store-process-tests store-process)

    # Each call of the system fails in turn: a program of its own, too. (The thread sanitizer makes such calls before its own
    # start is over.)
    velumora_test(fault-tests
        faults/FaultShim.cpp
        faults/FaultShim.h
        faults/draft_faults_test.cpp
        faults/every_fault.cpp
        faults/every_fault.h
        faults/reminder_faults_test.cpp
        faults/store_faults_test.cpp
        LABELS core store)
    target_compile_definitions(fault-tests PRIVATE TEST_FOLDER="${CMAKE_CURRENT_BINARY_DIR}")
endif()

# The notebook on the disk.
velumora_test(note-store-tests
    saving/note_store_test.cpp
    support/DateGuards.cpp
    support/DateGuards.h
    SHARDS 1)
target_compile_definitions(note-store-tests PRIVATE TEST_FOLDER="${CMAKE_CURRENT_BINARY_DIR}")

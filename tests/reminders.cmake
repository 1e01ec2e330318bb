velumora_test(reminder-tests core/reminder_file_test.cpp core/reminders_test.cpp LABELS core SHARDS 2)
target_compile_definitions(reminder-tests PRIVATE TEST_FOLDER="${CMAKE_CURRENT_BINARY_DIR}")

velumora_test(query-tests
    core/note_queries_test.cpp
    core/text_lines_test.cpp
    core/text_search_test.cpp
)

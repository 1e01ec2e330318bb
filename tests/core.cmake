velumora_test(query-tests
    core/text_lines_test.cpp
    core/text_search_test.cpp
)

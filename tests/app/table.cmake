find_package(Qt6 6.4 REQUIRED COMPONENTS Test)

velumora_test(table-tests
    app/cell_editor_test.cpp
    app/cell_lines_test.cpp
    app/control_appearance_test.cpp
    app/row_heights_test.cpp
    app/table_accessible_test.cpp
    app/table_editing_test.cpp
    app/table_fixture.cpp
    app/table_fixture.h
    app/table_main.cpp
    app/table_painting_test.cpp
    app/table_view_test.cpp
    LIBRARIES velumora-app Qt6::GuiPrivate Qt6::Test
    LABELS app
)

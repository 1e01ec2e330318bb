find_package(Qt6 6.4 REQUIRED COMPONENTS Gui Test)

velumora_test(table-tests
    app/cell_editor_test.cpp
    app/plain_tool_tip_test.cpp
    app/composing_test.cpp
    app/control_appearance_test.cpp
    app/row_heights_test.cpp
    app/table_accessible_test.cpp
    app/table_editing_test.cpp
    app/table_fixture.cpp
    app/table_fixture.h
    app/table_main.cpp
    app/table_painting_test.cpp
    app/table_view_test.cpp
    app/table_writing_test.cpp
    LIBRARIES velumora-core velumora-table velumora-widgets velumora-look Qt6::GuiPrivate Qt6::Test
    LABELS app
    SHARDS 4
)

# Writing on the desktops that there are: each with its font, at one pixel a point and at two.
foreach(fonts dejavu noto cantarell cjk)
    foreach(scale 1 2)
        if(NOT "${fonts} ${scale}" STREQUAL "dejavu 1") # which is every test's
            velumora_shards(table-tests 1 PREFIX "${fonts}-${scale}x." FILTER "*TableWriting*:TestFonts*"
                ENVIRONMENT "TEST_FONTS=${fonts}" "QT_SCALE_FACTOR=${scale}" LABELS app)
        endif()
    endforeach()
endforeach()

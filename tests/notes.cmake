include(app/table.cmake)

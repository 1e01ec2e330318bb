# The texts of each language, compiled into the program as :/translations/velumora_<language>.qm.
qt_add_lrelease(velumora-app
    TS_FILES resources/de.lproj/velumora_de.ts
    QM_FILES_OUTPUT_VARIABLE VELUMORA_CATALOGUES)
qt_add_resources(velumora-app translations
    PREFIX /translations
    BASE ${CMAKE_CURRENT_BINARY_DIR}
    FILES ${VELUMORA_CATALOGUES})

# cmake --install: the programs, the help, and what has desktops find and start them.
include(GNUInstallDirs)

install(TARGETS velumora velumora-reminder-agent)
install(DIRECTORY resources/de.lproj resources/en.lproj DESTINATION ${CMAKE_INSTALL_DATADIR}/velumora
    PATTERN *.ts EXCLUDE)
install(FILES packaging/velumora.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

# What software centres say of it.
set(metainfo app.velumora.Velumora.metainfo.xml)
configure_file(packaging/${metainfo}.in ${metainfo} @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# session_service(NAME program): the session bus starts the program when somebody calls that name.
function(session_service service program)
    set(file ${CMAKE_CURRENT_BINARY_DIR}/${service}.service)
    configure_file(packaging/session.service.in ${file} @ONLY)
    install(FILES ${file} DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
endfunction()
session_service(app.velumora.Velumora velumora)
session_service(app.velumora.ReminderAgent1 velumora-reminder-agent)

# What `cmake --install` lays down, in two parts: `programas` for who uses the programs and
# `desarrollo` for who writes a host. Nothing laid down names the folder it was built in.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/quorvane)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME programas)
set(QUORVANE_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Quorvane)
set(QUORVANE_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/quorvane)

# The module and each adapter in an export of its own, so that a host needs what it asks for alone.
set(installed_components)
function(install_library component target)
  if(NOT TARGET ${target})  # the desktop's, where it isn't built
    return()
  endif()
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${component})
  install(TARGETS ${target} EXPORT Quorvane-${component}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT desarrollo
          INCLUDES DESTINATION ${QUORVANE_INSTALL_INCLUDEDIR})
  install(EXPORT Quorvane-${component} NAMESPACE Quorvane:: COMPONENT desarrollo
          DESTINATION ${QUORVANE_INSTALL_CMAKEDIR})
  set(installed_components ${installed_components} ${component} PARENT_SCOPE)
  # Each component's headers begin here; what they include comes along.
  set(header_roots ${header_roots} ${ARGN} PARENT_SCOPE)
endfunction()

set(header_roots
    frame/cAsignarDatos.h frame/cDatosSesion.h frame/cNombreNodo.h frame/schema/SchoolSchema.h
    register/cMatProf.h
    # The session, the connections and the host's components.
    platform/RuntimeError.h platform/controls/FormInstances.h platform/data/Connection.h
    platform/data/Recordset.h platform/host/Application.h platform/host/CentroApi.h
    platform/host/FrontEnd.h platform/host/HostObject.h platform/host/ObjectFactory.h
    platform/host/PersonSearch.h platform/host/SessionObject.h platform/host/SessionValues.h
    # The models that a front end shows.
    platform/controls/Animation.h platform/controls/CheckBox.h platform/controls/ComboBox.h
    platform/controls/CommandButton.h platform/controls/Form.h platform/controls/Frame.h
    platform/controls/Label.h platform/controls/ListBox.h platform/controls/MSFlexGrid.h
    platform/controls/Retivo.h platform/controls/TabStrip.h platform/controls/TextBox.h)
install_library(quorvane quorvane)
# What the adapters of databases stand on: no host asks for it.
install_library(sqltext quorvane_sqltext)
install_library(sqlite quorvane_sqlite adapters/sqlite/SqliteConnection.h)
install_library(odbc quorvane_odbc adapters/odbc/OdbcConnection.h)
install_library(guion quorvane_guion adapters/guion/host/Host.h
                adapters/guion/language/ScriptError.h adapters/guion/language/ScriptParser.h
                adapters/guion/player/EventPrinter.h adapters/guion/player/Guion.h)
install_library(qt quorvane_qt adapters/qt/window/FormWindow.h adapters/qt/window/QtFrontEnd.h)

# Found when installing, not before: touching a header must not configure the project again.
set(install_headers ${CMAKE_BINARY_DIR}/InstallHeaders.cmake)
set(header_destination ${QUORVANE_INSTALL_INCLUDEDIR})
configure_file(cmake/InstallHeaders.cmake.in ${install_headers} @ONLY)
install(SCRIPT ${install_headers} COMPONENT desarrollo)

configure_package_config_file(cmake/QuorvaneConfig.cmake.in ${CMAKE_BINARY_DIR}/QuorvaneConfig.cmake
                              INSTALL_DESTINATION ${QUORVANE_INSTALL_CMAKEDIR}
                              NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/QuorvaneConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/QuorvaneConfig.cmake
              ${CMAKE_BINARY_DIR}/QuorvaneConfigVersion.cmake
        DESTINATION ${QUORVANE_INSTALL_CMAKEDIR} COMPONENT desarrollo)

function(install_compressed component destination)
  set(texts ${ARGN})
  string(MAKE_C_IDENTIFIER ${destination} name)
  set(script ${CMAKE_BINARY_DIR}/InstallCompressed-${name}.cmake)
  configure_file(cmake/InstallCompressed.cmake.in ${script} @ONLY)
  install(SCRIPT ${script} COMPONENT ${component})
endfunction()

# The programs, and what a desktop and a shell know of each.
set(man_pages)
foreach(program quorvane-escuela quorvane-guion zendria)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME)
    list(APPEND man_pages packaging/man/${program}.1)
    install(FILES packaging/completion/${program}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    install(FILES packaging/completion/_${program}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
  endif()
endforeach()
install_compressed(programas ${CMAKE_INSTALL_MANDIR}/man1 ${man_pages})
if(TARGET zendria)
  install(FILES packaging/zendria.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES adapters/qt/iconos/zendria.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  foreach(size 32 48 64 128 256)
    install(FILES packaging/iconos/zendria-${size}.png RENAME zendria.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
endif()

# The documents keep their folders, since they link to each other.
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs bench DESTINATION ${CMAKE_INSTALL_DOCDIR}
        FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN *.svg PATTERN *.guion
        PATTERN qt EXCLUDE)
install(FILES frame/schema/school.schema DESTINATION ${CMAKE_INSTALL_DOCDIR}/frame/schema)
include(cmake/Manual.cmake)
install(FILES ${schema_files}/sqlite.sql ${schema_files}/sqlserver.sql ${schema_files}/postgresql.sql
        DESTINATION ${CMAKE_INSTALL_DATADIR}/quorvane/esquema)

# What each package says of its history and its terms.
foreach(package programas:quorvane desarrollo:quorvane-dev)
  string(REGEX REPLACE ":.*" "" component ${package})
  string(REGEX REPLACE ".*:" "" folder ${package})
  set(folder ${CMAKE_INSTALL_DATAROOTDIR}/doc/${folder})
  install_compressed(${component} ${folder} packaging/debian/changelog)
  install(FILES packaging/debian/copyright DESTINATION ${folder} COMPONENT ${component})
endforeach()

# The manual as a browser shows it, beside its pictures. Without Python there is the text alone.
find_package(Python3 COMPONENTS Interpreter)
if(NOT Python3_FOUND)
  message(STATUS "No Python: the manual is laid down as text alone")
  return()
endif()

set(manual_page ${CMAKE_BINARY_DIR}/docs/manual.html)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/docs)
add_custom_command(OUTPUT ${manual_page}
                   COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_SOURCE_DIR}/tools/manual_html.py
                           ${CMAKE_SOURCE_DIR}/docs/manual.md ${manual_page}
                   DEPENDS ${CMAKE_SOURCE_DIR}/docs/manual.md
                           ${CMAKE_SOURCE_DIR}/tools/manual_html.py
                   VERBATIM)
# What it shows and leads to lies beside it there as it will where it is installed.
file(GLOB beside_manual RELATIVE ${CMAKE_SOURCE_DIR}/docs ${CMAKE_SOURCE_DIR}/docs/*)
foreach(name IN LISTS beside_manual)
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/docs/${name} ${CMAKE_BINARY_DIR}/docs/${name} COPY_ON_ERROR SYMBOLIC)
endforeach()
add_custom_target(manual_page ALL DEPENDS ${manual_page})
if(TARGET zendria)
  # Its help is there as soon as the program is.
  add_dependencies(zendria manual_page)
endif()
install(FILES ${manual_page} DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)

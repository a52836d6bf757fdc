# The document of the servers: its commands, run beside a server of their own.
find_package(Python3 COMPONENTS Interpreter REQUIRED)

add_test(NAME servidor.document
         COMMAND ${Python3_EXECUTABLE} -B ${CMAKE_CURRENT_LIST_DIR}/document_test.py)
set_tests_properties(
  servidor.document
  PROPERTIES LABELS servidor TIMEOUT 600
             ENVIRONMENT
             "QUORVANE_ESCUELA=$<TARGET_FILE:quorvane-escuela>;QUORVANE_GUION=$<TARGET_FILE:quorvane-guion>;${test_variables}")

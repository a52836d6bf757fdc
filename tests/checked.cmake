# The checked variant: the module, its adapters and what the test programs link besides, compiled a
# second time with sanitizers and line counters. The tests themselves are compiled once and linked
# against either. The rest of the build stays as it is; with sanitizers in the whole build there is
# no second variant.
include(CheckCXXSourceCompiles)
set(CMAKE_REQUIRED_FLAGS "-fsanitize=address,undefined --coverage")
check_cxx_source_compiles("int main() {}" QUORVANE_HAS_SANITIZERS)
unset(CMAKE_REQUIRED_FLAGS)
if(QUORVANE_SANITIZE OR NOT QUORVANE_HAS_SANITIZERS)
  return()
endif()

add_library(quorvane_checked_options INTERFACE)
# The preset with sanitizers checks null and aligned pointers too, which take a third of the time that
# the rest does, and whose misuse the other sanitizer mostly sees.
set(checked_sanitizers -fsanitize=address,undefined -fno-sanitize=null,alignment
                       -fno-sanitize-recover=all)
target_compile_options(quorvane_checked_options INTERFACE
                       ${checked_sanitizers} -fno-omit-frame-pointer -g1 -O1)
target_link_options(quorvane_checked_options INTERFACE -fsanitize=address,undefined --coverage)
# What plays on it is no more watched than other tests are: to be linked behind it.
add_library(quorvane_unwatched INTERFACE)
target_compile_options(quorvane_unwatched INTERFACE -fno-sanitize=all)

# Objects, not an archive: they come first in each program, so that of the inline functions that
# the tests compile too the checked ones are taken; and what no test calls is counted as well.
function(checked_library name)
  add_library(${name} OBJECT)
  target_link_libraries(${name} PUBLIC quorvane_checked_options quorvane_options)
  foreach(library IN LISTS ARGN)
    get_target_property(files ${library} SOURCES)
    get_target_property(folder ${library} SOURCE_DIR)
    list(TRANSFORM files PREPEND ${folder}/ REGEX "^[^/]")
    target_sources(${name} PRIVATE ${files})
    get_target_property(definitions ${library} COMPILE_DEFINITIONS)
    if(definitions)
      target_compile_definitions(${name} PRIVATE ${definitions})
    endif()
    get_target_property(linked ${library} LINK_LIBRARIES)
    list(FILTER linked EXCLUDE REGEX "^quorvane")
    target_link_libraries(${name} PUBLIC ${linked})
  endforeach()
  # The tools that read the compile commands see each file once, as it is built for use.
  # And as nobody compiles it by the file, what the files share is compiled once for several of them.
  set_target_properties(${name} PROPERTIES EXPORT_COMPILE_COMMANDS OFF UNITY_BUILD ON
                                           UNITY_BUILD_BATCH_SIZE 24)
  compile_headers_once(${name})
endfunction()
# The module's lines are counted; what stands round it is checked alone.
checked_library(quorvane_checked quorvane)
target_compile_options(quorvane_checked PRIVATE --coverage)
checked_library(quorvane_checked_round quorvane_sqltext quorvane_sqlite quorvane_odbc quorvane_guion
                quorvane_guion_host quorvane_escuela)
set_source_files_properties(${version_source} PROPERTIES COMPILE_DEFINITIONS ${version_definition})

# The counters start at zero in each run of the tests.
add_test(NAME checked_counters
         COMMAND ${CMAKE_COMMAND} -DFOLDER=${CMAKE_CURRENT_BINARY_DIR}
                 -P ${CMAKE_CURRENT_LIST_DIR}/remove_counters.cmake)
set_tests_properties(checked_counters PROPERTIES FIXTURES_SETUP checked_counters LABELS checked)

# Frames are larger under the sanitizers, and shows nest thousands deep in a test.
set(with_larger_stack sh -c "ulimit -S -s 65536 && exec \"$0\" \"$@\"")

# What others' libraries keep to the end.
set(checked_leaks "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/leaks.txt")

# checked_test(NAME [ENVIRONMENT VARIABLE=VALUE...] COMMAND ...): a run that fills the counters.
function(checked_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND;ENVIRONMENT")
  list(POP_FRONT arg_COMMAND program)
  add_test(NAME ${name} COMMAND ${with_larger_stack} $<TARGET_FILE:${program}> ${arg_COMMAND}
           WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  set_tests_properties(${name} PROPERTIES LABELS checked FIXTURES_REQUIRED checked_counters
                       TIMEOUT 600
                       ENVIRONMENT "${test_variables};${checked_leaks};${arg_ENVIRONMENT}")
endfunction()

# checked_area(AREA [SHARDS N] [ENVIRONMENT VARIABLE=VALUE...]): the tests of test_AREA, the same
# objects, linked against the checked variant; one ctest entry a shard, for a start under the
# sanitizers takes longer than most tests.
function(checked_area area)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "SHARDS" "ENVIRONMENT")
  if(NOT arg_SHARDS)
    set(arg_SHARDS 1)
  endif()
  set(program test_${area}_checked)
  if(NOT TARGET ${program})
    add_executable(${program} $<TARGET_OBJECTS:quorvane_checked>
                   $<TARGET_OBJECTS:quorvane_checked_round> $<TARGET_OBJECTS:test_${area}>)
    get_target_property(linked test_${area} LINK_LIBRARIES)
    if(quorvane_test_support IN_LIST linked)
      target_sources(${program} PRIVATE $<TARGET_OBJECTS:quorvane_test_support>)
    endif()
    list(FILTER linked EXCLUDE REGEX "^quorvane")
    get_target_property(checked_linked quorvane_checked_round INTERFACE_LINK_LIBRARIES)
    target_link_libraries(${program} PRIVATE ${linked} ${checked_linked})
  endif()
  math(EXPR last "${arg_SHARDS} - 1")
  foreach(shard RANGE ${last})
    checked_test(checked_${area}_${shard} COMMAND ${program} --gtest_brief=1
                 ENVIRONMENT GTEST_TOTAL_SHARDS=${arg_SHARDS} GTEST_SHARD_INDEX=${shard}
                             ${arg_ENVIRONMENT})
  endforeach()
endfunction()

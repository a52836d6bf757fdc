# How tools/mutantes builds a checkout, without a change in its own CMake files: the module as a
# shared library, so that a fault in one source is one compilation and one link, and the standard
# headers read once.

# The programs need no new link when only what is inside the library has changed.
set(CMAKE_LINK_DEPENDS_NO_SHARED ON)
# No second variant of the module, with sanitizers.
set(QUORVANE_HAS_SANITIZERS OFF CACHE INTERNAL "")
# A fault such as `a || b && c` is wanted: the warning would keep it out.
add_compile_options(-Wno-parentheses)
# A step beyond the end of an array ends the program, as under the sanitizers.
add_compile_definitions(_GLIBCXX_ASSERTIONS)

macro(add_library name)
  set(mutantes_arguments ${ARGN})
  if("${name}" STREQUAL "quorvane")
    list(TRANSFORM mutantes_arguments REPLACE "^STATIC$" "SHARED")
  endif()
  _add_library(${name} ${mutantes_arguments})
  if("${name}" STREQUAL "quorvane")
    # What the library alone would define keeps others from using its compiled headers.
    set_target_properties(quorvane PROPERTIES DEFINE_SYMBOL "")
  endif()
  # As the module, what uses its compiled headers; the tests' libraries as the programs.
  if(NOT "INTERFACE" IN_LIST mutantes_arguments AND NOT "ALIAS" IN_LIST mutantes_arguments
     AND NOT "${name}" MATCHES "^quorvane_(test_.*|walk)$")
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  endif()
endmacro()

function(mutantes_precompile target)
  if(NOT TARGET ${target})
    return()
  endif()
  get_target_property(headers ${target} PRECOMPILE_HEADERS)
  get_target_property(reused ${target} PRECOMPILE_HEADERS_REUSE_FROM)
  if(headers OR reused)
    return()
  endif()
  target_precompile_headers(${target} PRIVATE ${ARGN})
endfunction()

function(mutantes_precompile_all)
  set(standard <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <string>
               <string_view> <utility> <variant> <vector>)
  mutantes_precompile(quorvane ${standard})
  # The module uses its own copy of the inline functions that the programs hold too.
  target_link_options(quorvane PRIVATE -Wl,-Bsymbolic-functions)
  foreach(target quorvane_test_support test_platform test_frame test_guion test_register
                 test_selection test_grades test_escuela)
    mutantes_precompile(${target} ${standard} <gmock/gmock.h> <gtest/gtest.h>)
  endforeach()
  mutantes_precompile(quorvane_walk ${standard})
endfunction()
cmake_language(DEFER CALL mutantes_precompile_all)

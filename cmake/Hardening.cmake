# What Debian builds its own packages with: an overrun of the stack or of a buffer of known size ends
# the program, which lies elsewhere in memory at each start and whose tables of functions nobody can
# write to. tests/host looks for it in the programs that are installed.
if(NOT UNIX)
  return()
endif()
# The faults that tools/mutantes plants are built into a library of another kind.
target_compile_options(quorvane_options INTERFACE -fstack-protector-strong
                       $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-fPIE>)
# The sanitizers watch the same functions, and see more; without optimisation there is nothing to it.
if(NOT QUORVANE_SANITIZE)
  target_compile_options(quorvane_options INTERFACE
                         $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
endif()
target_link_options(quorvane_options INTERFACE
                    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie> LINKER:-z,relro
                    LINKER:-z,now)

# What CPack is about to pack, without the compilers' own marks, as Debian's packages are.
file(GLOB_RECURSE programs LIST_DIRECTORIES false "${CPACK_TEMPORARY_DIRECTORY}/*/usr/bin/*"
     "${CPACK_TEMPORARY_DIRECTORY}/*/usr/lib/*.a")
foreach(program IN LISTS programs)
  set(what --strip-unneeded --remove-section=.comment --remove-section=.note)
  if(program MATCHES "\\.a$")
    set(what --strip-debug --remove-section=.comment --remove-section=.note
             --enable-deterministic-archives)
  endif()
  execute_process(COMMAND strip ${what} ${program} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

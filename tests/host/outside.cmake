# Installs the build, moves it, builds the host in the folder `anfitrion` against it and runs it.
# All of it lies in the build folder, always at the same place, so that a compiler cache serves.
cmake_policy(VERSION 3.25)
set(work ${BUILD}/anfitrion)
set(staged ${work}/paso)
set(prefix ${work}/prefijo)
file(REMOVE_RECURSE ${work})
set(ENV{QT_QPA_PLATFORM} offscreen)
unset(ENV{QUORVANE_TRAZA})

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE text ERROR_VARIABLE text)
  if(NOT status EQUAL 0)
    string(JOIN " " command ${ARGV})
    message(FATAL_ERROR "${command}\n${text}")
  endif()
  set(output "${text}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} -E env DESTDIR=${staged}
    ${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --prefix /opt/quorvane)
file(RENAME ${staged}/opt/quorvane ${prefix})

# What is installed works where neither the sources nor the build are; a debugger alone may look
# for them.
if(CONFIG STREQUAL Release AND NOT SANITIZE)
  execute_process(COMMAND grep -rlF -e ${SOURCE} -e ${BUILD} ${prefix} OUTPUT_VARIABLE naming
                  RESULT_VARIABLE status)
  if(NOT status EQUAL 1)
    message(FATAL_ERROR "Installed files name the folders they come from:\n${naming}")
  endif()
endif()

# What the manual pages point to is there.
file(GLOB pages ${prefix}/share/man/man1/*.gz)
foreach(page IN LISTS pages)
  run(gzip -dc ${page})
  string(REPLACE "\\-" "-" output "${output}")
  string(REGEX MATCHALL "/opt/quorvane/[a-z./-]+" paths "${output}")
  foreach(path IN LISTS paths)
    string(REPLACE /opt/quorvane ${prefix} there ${path})
    if(NOT EXISTS ${there})
      message(FATAL_ERROR "${page} tells of ${path}, which isn't installed")
    endif()
  endforeach()
  if(NOT paths)
    message(FATAL_ERROR "${page} tells of no file")
  endif()
endforeach()

# The documents' links to each other hold.
file(GLOB_RECURSE documents ${prefix}/share/doc/quorvane/*.md)
list(LENGTH documents count)
if(count LESS 3)
  message(FATAL_ERROR "Only ${count} documents were installed")
endif()
foreach(document IN LISTS documents)
  if(document MATCHES "/where-is\\.md$")  # leads into the sources, which aren't installed
    continue()
  endif()
  get_filename_component(folder ${document} DIRECTORY)
  file(READ ${document} text)
  # Brackets and semicolons mean something in a list.
  string(REPLACE "](" "\n@" text "${text}")
  string(REGEX REPLACE "[][;]" " " text "${text}")
  string(REGEX MATCHALL "\n@[^)#:]+" links "${text}")
  foreach(link IN LISTS links)
    string(SUBSTRING "${link}" 2 -1 link)
    if(NOT link MATCHES "^(https?|mailto)$" AND NOT EXISTS ${folder}/${link})
      message(FATAL_ERROR "${document} links to ${link}, which isn't installed")
    endif()
  endforeach()
endforeach()

set(flags)
if(SANITIZE)
  list(APPEND flags -DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZE})
endif()
find_program(CCACHE ccache)
if(CCACHE)
  list(APPEND flags -DCMAKE_CXX_COMPILER_LAUNCHER=${CCACHE})
endif()
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/anfitrion -B ${work}/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCHECKED_VERSION=${CHECKED_VERSION} ${flags})
run(${CMAKE_COMMAND} --build ${work}/build)

run(${prefix}/bin/quorvane-escuela demo ${work}/escuela.sqlite)
run(${work}/build/anfitrion ${work}/escuela.sqlite)
message("${output}")
if(EXISTS ${work}/build/anfitrion-guion)
  run(${work}/build/anfitrion-guion)
  message("${output}")
endif()
if(EXISTS ${work}/build/anfitrion-qt)
  # What the toolkit leaves allocated at its end isn't the host's.
  set(ENV{ASAN_OPTIONS} detect_leaks=0)
  run(${work}/build/anfitrion-qt ${work}/escuela.sqlite)
  message("${output}")
endif()

# Windows' compiler, which Debian has as g++-mingw-w64-x86-64-posix. Of the two it has the one whose
# threads the standard library knows.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)

# Cross toolchain: 64-bit Windows programs from a Debian host.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The libraries that scripts/windows-deps.sh has built.
set(MURALA_WINDOWS_DEPS "$ENV{MURALA_WINDOWS_DEPS}" CACHE PATH "prefix of the Windows libraries")
set(CMAKE_FIND_ROOT_PATH "${MURALA_WINDOWS_DEPS}" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The headers' assertions name their file: not where this user keeps the cache.
foreach(language C CXX)
  set(CMAKE_${language}_FLAGS_INIT "-ffile-prefix-map=${MURALA_WINDOWS_DEPS}=libraries")
endforeach()
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")

# What both Windows toolchains share: compiler, resource compiler, static run-time, emulator.
set(CMAKE_SYSTEM_NAME Windows)
# GoogleTest's own project asks for C as well.
set(CMAKE_C_COMPILER ${KELVANE_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KELVANE_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${KELVANE_MINGW_TRIPLET}-windres)
set(CMAKE_AR ${KELVANE_MINGW_TRIPLET}-gcc-ar-posix CACHE FILEPATH "")
set(CMAKE_RANLIB ${KELVANE_MINGW_TRIPLET}-gcc-ranlib-posix CACHE FILEPATH "")

# One .exe and no run-time DLL beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

set(CMAKE_FIND_ROOT_PATH /usr/${KELVANE_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Header-only libraries of the host (CLI11) serve Windows as well.
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR
    "${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-${KELVANE_WINE_WORLD}.sh")

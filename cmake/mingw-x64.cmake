# Cross build for 64-bit Windows with Debian's MinGW-w64; finished programs run under Wine.
set(KELVANE_MINGW_TRIPLET x86_64-w64-mingw32)
set(KELVANE_WINE_WORLD x64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)

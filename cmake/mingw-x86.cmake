# Cross build for 32-bit Windows with Debian's MinGW-w64; finished programs run under Wine.
# SSE2 arithmetic instead of the x87 stack: both Windows builds and Linux give the same numbers.
set(KELVANE_MINGW_TRIPLET i686-w64-mingw32)
set(KELVANE_WINE_WORLD x86)
set(CMAKE_CXX_FLAGS_INIT "-march=pentium4 -mfpmath=sse -msse2 -mstackrealign")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)

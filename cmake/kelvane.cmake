# Helpers that every folder's CMakeLists.txt uses.

add_library(kelvane_flags INTERFACE)
target_compile_features(kelvane_flags INTERFACE cxx_std_20)
target_include_directories(kelvane_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
# -ffp-contract=off: a fused multiply-add rounds once where two operations round twice, which
# would make results depend on the processor.
target_compile_options(kelvane_flags INTERFACE
  # GCC 12 reports a false overlap in std::string operator+.
  -Wall -Wextra -Wpedantic -Wshadow -Wcast-align -Wnon-virtual-dtor -Wundef -Werror
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  -ffp-contract=off)
# One commit gives the same program in every folder and at every time.
target_compile_options(kelvane_flags INTERFACE
  $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>)
if(WIN32)
  target_link_options(kelvane_flags INTERFACE -Wl,--no-insert-timestamp)
  target_compile_definitions(kelvane_flags INTERFACE
    UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX WINVER=0x0601 _WIN32_WINNT=0x0601)
endif()
if(NOT WIN32)
  # Hardening: an overrun buffer or a wrong pointer ends the program rather than steers it.
  target_compile_options(kelvane_flags INTERFACE
    "$<$<CONFIG:Release>:-fPIE;-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
  target_link_options(kelvane_flags INTERFACE
    "$<$<CONFIG:Release>:-pie;-Wl,-z,relro,-z,now>")
endif()
if(KELVANE_SANITIZE)
  target_compile_options(kelvane_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kelvane_flags INTERFACE -fsanitize=address,undefined)
endif()
if(KELVANE_FUZZ)
  target_compile_options(kelvane_flags INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(kelvane_flags INTERFACE -fsanitize=address,undefined)
endif()

# kelvane_library(NAME [OBJECT] SOURCES file... [LINKS library...])
# A static library, or an object library, of one folder of src. LINKS names a library of every other
# folder that it includes: scripts/check-source.sh reads it and allows no more.
function(kelvane_library name)
  cmake_parse_arguments(arg "OBJECT" "" "SOURCES;LINKS" ${ARGN})
  if(arg_OBJECT)
    add_library(${name} OBJECT ${arg_SOURCES})
  else()
    add_library(${name} STATIC ${arg_SOURCES})
  endif()
  target_link_libraries(${name} PUBLIC kelvane_flags ${arg_LINKS})
endfunction()

# kelvane_test(NAME SOURCES file... [LINKS library...])
# One test program; ctest runs it natively or under Wine and names it WORLD.NAME.
function(kelvane_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE
    KELVANE_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  target_link_libraries(${name} PRIVATE ${arg_LINKS} GTest::gmock GTest::gtest_main)
  add_test(NAME ${KELVANE_WORLD}.${name} COMMAND ${name})
  set_tests_properties(${KELVANE_WORLD}.${name} PROPERTIES TIMEOUT 300)
  if(WIN32)
    # The programs of one Wine share a desktop: clipboard, focus and the table of window handles.
    set_tests_properties(${KELVANE_WORLD}.${name} PROPERTIES RESOURCE_LOCK ${KELVANE_WORLD})
  endif()
endfunction()

# kelvane_program_resources(NAME program description [resource.rc...])
# An object library (no symbol asks for resources) with what a Windows program carries: manifest and
# version information, which name the `program` (without ".exe") and the holder of the copyright.
function(kelvane_program_resources name program description)
  set(res ${PROJECT_SOURCE_DIR}/res)
  file(STRINGS ${PROJECT_SOURCE_DIR}/LICENSE copyright REGEX "^Copyright" LIMIT_COUNT 1)
  string(REGEX REPLACE "^Copyright \\(c\\) [0-9]+ " "" company "${copyright}")
  configure_file(${res}/version.rc.in ${CMAKE_CURRENT_BINARY_DIR}/version.rc @ONLY)
  add_library(${name} OBJECT ${res}/manifest.rc ${CMAKE_CURRENT_BINARY_DIR}/version.rc ${ARGN})
  target_include_directories(${name} PRIVATE ${res})
  set_source_files_properties(${res}/manifest.rc PROPERTIES OBJECT_DEPENDS ${res}/kelvane.manifest)
endfunction()

# kelvane_avx2_sources(file...)
# Compiles the files for processors with AVX2. They may hold only what the linker cannot hand to
# other files (static functions, unnamed namespaces, intrinsics): no templates or inline functions
# of the standard library.
function(kelvane_avx2_sources)
  set(flags -mavx2)
  if(MINGW)
    # GCC aligns the stack to 16 bytes only on 64-bit Windows; aligned 32-byte moves would trap.
    list(APPEND flags -Wa,-muse-unaligned-vector-move)
  endif()
  set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS "${flags}")
endfunction()

# Options and functions for this repository's targets.

# clang has no `-Wshadow=local`, and where files are compiled as one unit its `-Wshadow` warns about names of the others.
set(shadow
  $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,$<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>>)
add_library(orrelo_options INTERFACE)
target_compile_options(orrelo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion ${shadow}
  $<$<BOOL:${ORRELO_WARNINGS_ARE_ERRORS}>:-Werror>)
# g++ 12 gives false warnings about overlapping and unbounded copies in std::string's operator+ (GCC bug
# 105651), and about reads of the string in an empty optional.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(orrelo_options INTERFACE
    -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds -Wno-maybe-uninitialized)
endif()
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  # Sizes and numbers of files can have more than 32 bits.
  target_compile_definitions(orrelo_options INTERFACE _FILE_OFFSET_BITS=64)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "86")
    # Registers of 80 bits would make a computed number unequal to the same number in memory.
    target_compile_options(orrelo_options INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()
if(ORRELO_SANITIZE)
  target_compile_options(orrelo_options INTERFACE -fsanitize=${ORRELO_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(orrelo_options INTERFACE -fsanitize=${ORRELO_SANITIZE})
endif()
if(ORRELO_FUZZ)
  target_compile_options(orrelo_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# orrelo_exports(<target>): exports only the kit's own symbols from a shared library, which must name every library
# that it needs. It stays loaded after `dlclose`, since the kit's threads run its code. An archive has none of this.
function(orrelo_exports target)
  if(NOT BUILD_SHARED_LIBS)
    return()
  endif()
  set(map ${PROJECT_SOURCE_DIR}/cmake/exports.map)
  target_link_options(${target} PRIVATE -Wl,--version-script=${map} -Wl,-z,nodelete -Wl,-z,defs
    ${ORRELO_SIZE_LINK_OPTIONS})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${map})
endfunction()

# Precompiles the standard library's headers that most files include, for all targets without Qt: once for each level
# of optimisation, because a precompiled header serves only the level that it was compiled with. Each file must still
# include what it uses, so that a build with CMAKE_DISABLE_PRECOMPILE_HEADERS works.
function(orrelo_precompile name)
  file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
  add_library(orrelo_${name} OBJECT ${PROJECT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(orrelo_${name} PRIVATE orrelo_options)
  target_compile_options(orrelo_${name} PRIVATE ${ARGN})
  target_precompile_headers(orrelo_${name} PRIVATE
    <algorithm> <array> <atomic> <chrono> <cmath> <cstdint> <deque> <functional> <map> <memory> <mutex> <optional>
    <string> <string_view> <tuple> <utility> <variant> <vector>)
endfunction()
orrelo_precompile(precompiled ${ORRELO_SIZE_FLAGS})
if(ORRELO_FOR_SIZE)
  orrelo_precompile(precompiled_fast ${ORRELO_SPEED_FLAGS})
endif()

# orrelo_subsystem(<name> SOURCES <file>... [FAST <file>...] [USES <subsystem>...] [LINKS <library>...])
#
# Defines the target of one folder of src/. FAST names the sources that are compiled for speed, see
# OrreloSize.cmake. USES names the subsystems that it may include from. The compiler does not enforce this list; the
# test `include_order` does.
function(orrelo_subsystem name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;FAST;USES;LINKS")
  list(TRANSFORM arg_USES PREPEND orrelo_)
  if(ORRELO_FOR_SIZE AND arg_FAST)
    orrelo_objects(${name}_fast precompiled_fast "${ORRELO_SPEED_FLAGS}" ${arg_FAST})
    orrelo_objects(${name} precompiled "${ORRELO_SIZE_FLAGS}" ${arg_SOURCES})
  else()
    orrelo_objects(${name} precompiled "${ORRELO_SIZE_FLAGS}" ${arg_SOURCES} ${arg_FAST})
  endif()
endfunction()

# A part of `orrelo_subsystem`, whose lists USES and LINKS it reads.
function(orrelo_objects name precompiled flags)
  add_library(orrelo_${name} OBJECT ${ARGN})
  target_include_directories(orrelo_${name} PUBLIC
    ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(orrelo_${name} PUBLIC ${arg_USES} ${arg_LINKS} PRIVATE orrelo_options)
  target_compile_options(orrelo_${name} PRIVATE ${flags})
  target_precompile_headers(orrelo_${name} REUSE_FROM orrelo_${precompiled})
  set_property(GLOBAL APPEND PROPERTY ORRELO_SUBSYSTEMS orrelo_${name})
endfunction()

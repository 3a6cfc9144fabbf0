# What makes the libraries of an optimised build small. With ORRELO_OPTIMIZE_SIZE off, or another compiler, the build
# type's flags alone apply, as they do in debug builds and where the flags of the build ask for none. The build type None is that of Debian's packages.
string(TOUPPER "${CMAKE_BUILD_TYPE}" build_type)
if(NOT ORRELO_OPTIMIZE_SIZE OR NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang"
    OR NOT build_type MATCHES "^(RELEASE|RELWITHDEBINFO|NONE)$" OR CMAKE_CXX_FLAGS MATCHES "-O[0g]")
  return()
endif()
set(ORRELO_FOR_SIZE ON)

# Most of the core runs once per touch or reply and is compiled for size. The sources in which that cost time in the
# benchmarks, named after FAST in `orrelo_subsystem`, are compiled for speed.
set(ORRELO_SIZE_FLAGS -Os -ffunction-sections)
set(ORRELO_SPEED_FLAGS -O2 -ffunction-sections)
# Without the functions that nothing refers to. Only the core's objects have a section for each function, and Qt marks
# the front's libraries with a section that nothing refers to.
set(ORRELO_CORE_LINK_OPTIONS -Wl,--gc-sections)

# Relative relocations in their packed form have a tenth of the size. The loader must know that form, as glibc does
# since 2.36; the linker makes such a library require that version. Other linkers and C libraries keep the long form.
include(CheckCXXSourceCompiles)
set(CMAKE_REQUIRED_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
check_cxx_source_compiles("
  #include <features.h>
  #if !__GLIBC_PREREQ(2, 36)
  #error the loader may not know packed relocations
  #endif
  int main() {}" ORRELO_PACKS_RELOCATIONS FAIL_REGEX "pack-relative-relocs")
unset(CMAKE_REQUIRED_LINK_OPTIONS)
if(ORRELO_PACK_RELOCATIONS AND ORRELO_PACKS_RELOCATIONS)
  list(APPEND ORRELO_SIZE_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
endif()

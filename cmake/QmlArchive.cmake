# orrelo_qml_archive(<target> MODULES <target> <function>...)
#
# Completes a QML module's library in a static build. Qt leaves resources beside an archive as object files, and a
# linker takes from an archive only the objects that something refers to. So the archive gets the objects of all
# MODULES with their resources, and one object that refers to the resources and to the function that registers each
# module's types; every program that links the archive takes that object. The property ORRELO_RESOURCES of a module
# has the targets of its resources.
function(orrelo_qml_archive target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "MODULES")
  if(BUILD_SHARED_LIBS)
    return()
  endif()
  set(functions "")
  while(arg_MODULES)
    list(POP_FRONT arg_MODULES module registration)
    string(APPEND declarations "void ${registration}();\n")
    string(APPEND calls "  ${registration}();\n")
    if(NOT module STREQUAL target)
      target_sources(${target} PRIVATE $<TARGET_OBJECTS:${module}>)
    endif()
    get_target_property(resources ${module} ORRELO_RESOURCES)
    foreach(resource IN LISTS resources)
      target_sources(${target} PRIVATE $<TARGET_OBJECTS:${resource}>)
      get_target_property(name ${resource} _qt_resource_name)
      string(APPEND declarations "int qInitResources_${name}();\n")
      string(APPEND calls "  qInitResources_${name}();\n")
    endforeach()
    # These properties would hand the loose objects on to the programs.
    set_target_properties(${module} PROPERTIES INTERFACE_SOURCES "" INTERFACE_LINK_OPTIONS "")
    get_target_property(links ${module} INTERFACE_LINK_LIBRARIES)
    list(FILTER links EXCLUDE REGEX "_resources_[0-9]+")
    set_property(TARGET ${module} PROPERTY INTERFACE_LINK_LIBRARIES "${links}")
  endwhile()
  file(CONFIGURE OUTPUT ${target}_parts.cpp @ONLY CONTENT
    "@declarations@\nextern \"C\" void @target@_parts();\nextern \"C\" void @target@_parts() {\n@calls@}\n")
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}_parts.cpp)
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${target}_parts.cpp PROPERTIES
    SKIP_PRECOMPILE_HEADERS ON SKIP_UNITY_BUILD_INCLUSION ON)
  target_link_options(${target} INTERFACE LINKER:--undefined=${target}_parts)
endfunction()

# One object library for each folder of zor/, in the order of the layers, and the one library made of them all.
#
#   zor_add_layer(name)     takes every .cpp of zor/<name>; files under zor/kernels/levels are built once for each level
#   zor_finish_library()    zor::zor
#   zor_layers_up_to(out name)   object libraries of <name> and of all layers before it (for tests)

include(GNUInstallDirs)

set(ZOR_LAYERS "" CACHE INTERNAL "")

add_library(zor_options INTERFACE)
target_compile_features(zor_options INTERFACE cxx_std_20)
target_include_directories(zor_options INTERFACE ${PROJECT_SOURCE_DIR})
# Formulas are compiled as written: no fused multiply-add unless a kernel says so.
target_compile_options(zor_options INTERFACE -ffp-contract=off)
target_compile_definitions(zor_options INTERFACE $<$<BOOL:${ZOR_HAVE_PNG}>:ZOR_HAVE_PNG>
                           $<$<BOOL:${ZOR_HAVE_JPEG}>:ZOR_HAVE_JPEG>)
add_library(zor_warnings INTERFACE)
target_compile_options(zor_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                       $<$<BOOL:${ZOR_WARNINGS_AS_ERRORS}>:-Werror>)

# Headers of the standard library that most sources include. A build that uses them precompiled does not notice what a
# source forgets to include: that is left to the builds without.
set(ZOR_COMMON_HEADERS <algorithm> <array> <cmath> <cstdint> <cstring> <functional> <initializer_list> <limits> <memory>
    <numeric> <ostream> <span> <stdexcept> <string> <string_view> <type_traits> <utility> <vector>)
# A compiler cache knows precompiled headers by their contents: they must not hold the time at which they were made.
add_library(zor_cacheable INTERFACE)
target_compile_options(zor_cacheable INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
                       "$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>")

function(zor_layer_settings target)
  target_link_libraries(${target} PRIVATE zor_options zor_warnings)
  if(ZOR_PRECOMPILED_HEADERS)
    target_link_libraries(${target} PRIVATE zor_cacheable)
    target_precompile_headers(${target} PRIVATE ${ZOR_COMMON_HEADERS})
  endif()
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON POSITION_INDEPENDENT_CODE ON)
  if(WIN32 AND BUILD_SHARED_LIBS)
    target_compile_definitions(${target} PRIVATE ZOR_SHARED_BUILD)
  endif()
endfunction()

function(zor_add_layer name)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/zor/${name}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_library(zor_${name} OBJECT ${sources})
  zor_layer_settings(zor_${name})
  set(parts zor_${name})

  # Inner loops: one source, compiled for each level of the x86-64 instruction set into a namespace of its own.
  file(GLOB levelled CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/zor/${name}/levels/*.cpp)
  if(levelled)
    set(levels base)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
      set(levels v2 v3 v4)
      target_compile_definitions(zor_${name} PRIVATE ZOR_X86_LEVELS)
    endif()
    foreach(level IN LISTS levels)
      add_library(zor_${name}_${level} OBJECT ${levelled})
      zor_layer_settings(zor_${name}_${level})
      set_target_properties(zor_${name}_${level} PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)
      target_compile_definitions(zor_${name}_${level} PRIVATE ZOR_LEVEL=${level})
      target_compile_options(zor_${name}_${level} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-O3>)
      if(NOT level STREQUAL base)
        target_compile_options(zor_${name}_${level} PRIVATE -march=x86-64-${level})
      endif()
      list(APPEND parts zor_${name}_${level})
    endforeach()
  endif()
  set(ZOR_PARTS_${name} ${parts} CACHE INTERNAL "")
  set(ZOR_LAYERS ${ZOR_LAYERS} ${name} CACHE INTERNAL "")
endfunction()

function(zor_layers_up_to out name)
  set(parts "")
  foreach(layer IN LISTS ZOR_LAYERS)
    list(APPEND parts ${ZOR_PARTS_${layer}})
    if(layer STREQUAL name)
      break()
    endif()
  endforeach()
  set(${out} ${parts} PARENT_SCOPE)
endfunction()

function(zor_finish_library)
  set(objects "")
  foreach(layer IN LISTS ZOR_LAYERS)
    foreach(part IN LISTS ZOR_PARTS_${layer})
      list(APPEND objects $<TARGET_OBJECTS:${part}>)
    endforeach()
  endforeach()
  # Inner headers and the inner loops are not part of the interface and stay behind.
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/zor/*.h)
  list(FILTER headers EXCLUDE REGEX "_internal\\.h$|/zor/kernels/")

  add_library(zor ${objects})
  add_library(zor::zor ALIAS zor)
  target_sources(zor PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${headers})
  target_compile_features(zor PUBLIC cxx_std_20)
  target_link_libraries(zor PRIVATE ${ZOR_EXTERNAL_LIBRARIES})
  if(WIN32 AND BUILD_SHARED_LIBS)
    target_compile_definitions(zor INTERFACE ZOR_SHARED)
  endif()
  # Before 1.0 each minor version may change the binary interface.
  set_target_properties(zor PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
endfunction()

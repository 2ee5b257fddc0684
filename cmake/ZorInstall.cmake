# `cmake --install`: library, headers, CMake package, pkg-config file. All of it may be moved to another prefix.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zor)
install(TARGETS zor EXPORT zorTargets FILE_SET HEADERS)
install(EXPORT zorTargets NAMESPACE zor:: DESTINATION ${package_dir})

set(ZOR_DEPENDENCIES "find_dependency(Threads)\n")
if(NOT BUILD_SHARED_LIBS)
  foreach(package IN LISTS ZOR_EXTERNAL_PACKAGES)
    string(APPEND ZOR_DEPENDENCIES "find_dependency(${package})\n")
  endforeach()
endif()
configure_package_config_file(cmake/zorConfig.cmake.in zorConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(zorConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zorConfig.cmake ${PROJECT_BINARY_DIR}/zorConfigVersion.cmake
        DESTINATION ${package_dir})

# A static library hands on what it links, so that plain `pkg-config --libs zor` is enough.
file(RELATIVE_PATH ZOR_PC_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" ZOR_PC_PREFIX ${ZOR_PC_PREFIX})
list(JOIN ZOR_EXTERNAL_MODULES " " modules)
if(BUILD_SHARED_LIBS)
  set(ZOR_PC_REQUIRES "Requires.private: ${modules}")
else()
  set(ZOR_PC_REQUIRES "Requires: ${modules}")
endif()
configure_file(cmake/zor.pc.in zor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zor.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

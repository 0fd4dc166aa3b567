# cmake --install: the library, its headers, what find_package and pkg-config read, and what sites copy.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS dralo EXPORT dralo FILE_SET HEADERS)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/dralo)
install(EXPORT dralo NAMESPACE dralo:: FILE dralo-targets.cmake DESTINATION ${package_dir})

file(GLOB images CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/assets/gfx/*.gif)
install(FILES ${PROJECT_SOURCE_DIR}/assets/dralo.css ${PROJECT_SOURCE_DIR}/assets/dralo.js
        DESTINATION ${CMAKE_INSTALL_DATADIR}/dralo)
install(FILES ${images} DESTINATION ${CMAKE_INSTALL_DATADIR}/dralo/gfx)

# The components that this build has, and what programs link besides when the library is static.
set(DRALO_COMPONENTS sqlite)
set(DRALO_REQUIRES "sqlite3 icu-i18n icu-uc libpcre2-8")
foreach(component odbc postgresql mariadb)
  string(TOUPPER ${component} option)
  if(DRALO_${option})
    list(APPEND DRALO_COMPONENTS ${component})
  endif()
endforeach()
if(DRALO_ODBC)
  string(APPEND DRALO_REQUIRES " odbc odbcinst")
endif()
get_target_property(type dralo TYPE)
if(type STREQUAL "STATIC_LIBRARY")
  set(DRALO_IS_STATIC ON)
else()
  # Named privately too, pkg-config would ask for their headers, which programs do not need.
  set(DRALO_IS_STATIC OFF)
  set(DRALO_REQUIRES "")
endif()

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/dralo-config.cmake.in ${PROJECT_BINARY_DIR}/dralo-config.cmake
                              INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/dralo-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/dralo-config.cmake ${PROJECT_BINARY_DIR}/dralo-config-version.cmake
        DESTINATION ${package_dir})

# Relative, since the prefix of --install may be another than that of the configuration.
file(RELATIVE_PATH DRALO_UP ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
foreach(folder LIB INCLUDE)
  cmake_path(APPEND DRALO_${folder}DIR "\${prefix}" ${CMAKE_INSTALL_${folder}DIR})
endforeach()
configure_file(${CMAKE_CURRENT_LIST_DIR}/dralo.pc.in ${PROJECT_BINARY_DIR}/dralo.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/dralo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Installs the libraries with their headers, so that find_package(krvList3) finds them.

get_property(libraries GLOBAL PROPERTY KRV_LIBRARIES)
install(TARGETS ${libraries}
    EXPORT krvList3Targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Headers of parts that were left out of the build would only mislead.
set(left_out_headers "")
if(NOT KRV_WITH_QT)
    list(APPEND left_out_headers PATTERN "krv/qt" EXCLUDE)
endif()
if(NOT KRV_WITH_SQLITE)
    list(APPEND left_out_headers PATTERN "krv/providers/sqlite*" EXCLUDE)
endif()
if(NOT KRV_WITH_ODBC)
    list(APPEND left_out_headers PATTERN "krv/providers/odbc*" EXCLUDE)
endif()
if(NOT KRV_WITH_JET)
    list(APPEND left_out_headers PATTERN "krv/providers/jet*" EXCLUDE)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/krv
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h" ${left_out_headers})

# The parts that others can ask for by find_package(krvList3 COMPONENTS ...).
set(components ${libraries})
list(TRANSFORM components REPLACE "^krv_" "")
string(REPLACE ";" " " components "${components}")

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/krvList3)
install(EXPORT krvList3Targets NAMESPACE krvList3:: DESTINATION ${package_dir})
configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/krvList3Config.cmake.in
    ${PROJECT_BINARY_DIR}/krvList3Config.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/krvList3ConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/krvList3Config.cmake
    ${PROJECT_BINARY_DIR}/krvList3ConfigVersion.cmake
    DESTINATION ${package_dir})

# cmake --install: both libraries, shared and static, the headers, and what CMake and pkg-config
# need to find them, wherever the folder is moved to later.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS rvncore rvngenmx rvncore_static rvngenmx_static rvngenmx_cpp
    EXPORT rvngenmx
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/rvngenmx)
install(EXPORT rvngenmx
    NAMESPACE rvngenmx::
    FILE rvngenmxConfig.cmake
    DESTINATION ${packageFolder}
    COMPONENT development)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/rvngenmxConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/rvngenmxConfigVersion.cmake
    DESTINATION ${packageFolder}
    COMPONENT development)

# Folders as pkg-config finds them from its file: below the prefix, or absolute ones as they are.
file(RELATIVE_PATH fromPcFolderToPrefix
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" fromPcFolderToPrefix "${fromPcFolderToPrefix}")
foreach(folder IN ITEMS LIBDIR INCLUDEDIR)
    set(pc${folder} "\${prefix}/${CMAKE_INSTALL_${folder}}")
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
        set(pc${folder} "${CMAKE_INSTALL_${folder}}")
    endif()
endforeach()
foreach(name IN ITEMS rvncore rvngenmx)
    configure_file(cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)
endforeach()

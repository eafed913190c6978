# cpack: two Debian packages, what programs need to run and what they need to be built.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME rvngenmx)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "the owner of rvngenmx")
set(CPACK_PACKAGE_CONTACT "the owner of rvngenmx")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES OFF)
set(CPACK_COMPONENTS_ALL runtime development)
set(terms "The terms of use are the owner's to set; this package grants none.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/cmake/copyright)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME librvngenmx6.1)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS libc6)
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Small, fast linear transforms: libraries
Complex and real DFT and Hartley transform of lengths 2 to 64, Walsh-Hadamard
transform of orders 1 to 13, and a planned DCT-IV.

${terms}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME librvngenmx-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "librvngenmx6.1 (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Small, fast linear transforms: development files
Headers, static archives, and files for pkg-config and CMake.

${terms}")

# Where Debian looks for the terms of a package.
foreach(component IN ITEMS RUNTIME DEVELOPMENT)
    string(TOLOWER ${component} name)
    install(FILES cmake/copyright
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME}
        COMPONENT ${name})
endforeach()

include(CPack)

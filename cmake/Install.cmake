# What is installed, and where: the library ("runtime"), its companions for texts ("text_runtime"),
# measurements ("measurement_runtime") and C ("c_runtime"), what building against them takes
# ("development"), and the command-line tool ("tool"). No installed file holds a path of the machine
# that built it.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# What is installed finds the libraries beside it, wherever the prefix is moved to. Debian's packages go
# where the loader looks, and have no such path.
if(NOT VALUE_OBJECT_DEBIAN_PACKAGES)
    file(RELATIVE_PATH libraries_from_programs /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${CMAKE_INSTALL_LIBDIR})
    set(VALUE_OBJECT_LIBRARY_RPATH $ORIGIN)
    set(VALUE_OBJECT_PROGRAM_RPATH $ORIGIN/${libraries_from_programs})
endif()

function(value_object_install_library target component)
    target_include_directories(${target} INTERFACE
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "${VALUE_OBJECT_LIBRARY_RPATH}")
    install(TARGETS ${target}
        EXPORT ValueObjectTargets
        LIBRARY
            DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT ${component}
            NAMELINK_COMPONENT development
        ARCHIVE
            DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT development
        FILE_SET HEADERS
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
            COMPONENT development)
endfunction()
value_object_install_library(ValueObject runtime)
value_object_install_library(ValueObjectText text_runtime)
value_object_install_library(ValueObjectMeasurement measurement_runtime)
value_object_install_library(ValueObjectC c_runtime)

# find_package(ValueObject 1 CONFIG) gives ValueObject::ValueObject, ValueObject::Text,
# ValueObject::Measurement and ValueObject::C.
set(package_config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ValueObject)
install(EXPORT ValueObjectTargets
    NAMESPACE ValueObject::
    DESTINATION ${package_config_dir}
    COMPONENT development)
configure_package_config_file(cmake/ValueObjectConfig.cmake.in ValueObjectConfig.cmake
    INSTALL_DESTINATION ${package_config_dir})
write_basic_package_version_file(ValueObjectConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
        ${CMAKE_CURRENT_BINARY_DIR}/ValueObjectConfig.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/ValueObjectConfigVersion.cmake
    DESTINATION ${package_config_dir}
    COMPONENT development)

# pkg-config finds the prefix from where the file lies.
file(RELATIVE_PATH prefix_from_pc_file
    /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" prefix_from_pc_file "${prefix_from_pc_file}")
foreach(library IN ITEMS ValueObject ValueObjectText ValueObjectMeasurement ValueObjectC)
    configure_file(cmake/${library}.pc.in ${library}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${library}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)
endforeach()

# value_object_manual(NAME SECTION COMPONENT): a manual page, compressed without a time stamp.
find_program(GZIP gzip)
function(value_object_manual name section component)
    set(page ${CMAKE_CURRENT_SOURCE_DIR}/docs/${name}.${section})
    if(GZIP)
        add_custom_command(OUTPUT ${name}.${section}.gz
            COMMAND ${GZIP} -9nc ${page} > ${name}.${section}.gz
            DEPENDS ${page})
        add_custom_target(${name}_manual ALL DEPENDS ${name}.${section}.gz)
        set(page ${CMAKE_CURRENT_BINARY_DIR}/${name}.${section}.gz)
    endif()
    install(FILES ${page}
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section}
        COMPONENT ${component})
endfunction()
value_object_manual(ValueObject 3 development)
value_object_manual(ValueObjectText 3 development)
value_object_manual(ValueObjectMeasurement 3 development)
value_object_manual(ValueObjectC 3 development)

if(VALUE_OBJECT_TOOL)
    set_target_properties(value-object PROPERTIES INSTALL_RPATH "${VALUE_OBJECT_PROGRAM_RPATH}")
    install(TARGETS value-object DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
    value_object_manual(value-object 1 tool)
endif()

# The documents and the examples, beside each other as in the sources.
set(documents_dir ${CMAKE_INSTALL_DOCDIR})
if(VALUE_OBJECT_DEBIAN_PACKAGES)
    set(documents_dir ${CMAKE_INSTALL_DATADIR}/doc/libvalueobject-dev)
endif()
install(FILES README.md DESTINATION ${documents_dir} COMPONENT development)
install(DIRECTORY docs examples DESTINATION ${documents_dir} COMPONENT development
    FILES_MATCHING PATTERN "site" EXCLUDE PATTERN "*.md" PATTERN "*.svg" PATTERN "*.c" PATTERN "*.cpp" PATTERN "*.lua" PATTERN "expected/*.txt")

if(NOT VALUE_OBJECT_DEBIAN_PACKAGES)
    install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)
endif()

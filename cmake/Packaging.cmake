# Debian packages: libvalueobject1, the library; libvalueobjecttext1, libvalueobjectmeasurement1 and
# libvalueobjectc1, its companions for texts, for measurements and for C; libvalueobject-dev, what
# building against them takes; value-object, the command-line tool; and python3-varnix-value, the
# Python package.
# tools/make_packages.sh makes them, and works out what libraries and tool depend on: dpkg-shlibdeps, which
# debhelper would ask, knows the C library of another processor only where it is installed as a package.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME valueobject)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "ValueObject maintainers <valueobject@packages.example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime text_runtime measurement_runtime c_runtime development)
if(VALUE_OBJECT_TOOL)
    list(APPEND CPACK_COMPONENTS_ALL tool)
endif()
if(VALUE_OBJECT_PYTHON)
    list(APPEND CPACK_COMPONENTS_ALL python)
endif()
set(CPACK_COMPONENTS_GROUPING IGNORE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
if(CMAKE_LIBRARY_ARCHITECTURE STREQUAL arm-linux-gnueabihf)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
endif()

set(long_description
"A number, the unit it is expressed in, and a lower and an upper error bound,
carried together through conversions, arithmetic and comparisons. Decibels,
temperature offsets, prefixes and electrical relations are part of it.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libvalueobject${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${long_description}

This package holds the shared library.")

set(CPACK_DEBIAN_TEXT_RUNTIME_PACKAGE_NAME libvalueobjecttext${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_TEXT_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_TEXT_RUNTIME_DESCRIPTION "${long_description}

This package holds the shared library that reads and prints them as text.")

set(CPACK_DEBIAN_MEASUREMENT_RUNTIME_PACKAGE_NAME libvalueobjectmeasurement${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_MEASUREMENT_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_MEASUREMENT_RUNTIME_DESCRIPTION "${long_description}

This package holds the shared library of measurements, whose bounds are certain
to enclose the truth.")

set(CPACK_DEBIAN_C_RUNTIME_PACKAGE_NAME libvalueobjectc${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_C_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_C_RUNTIME_DESCRIPTION "${long_description}

This package holds the shared library for programs in C, and for all that
calls C.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvalueobject-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libvalueobject${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), \
libvalueobjecttext${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), \
libvalueobjectmeasurement${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), \
libvalueobjectc${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "${long_description}

This package holds the headers and what CMake and pkg-config need.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME value-object)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION science)
set(CPACK_COMPONENT_TOOL_DESCRIPTION "${long_description}

This package holds the command-line tool: it converts quantities, columns of
numbers and CSV tables, computes with quantities, and lists the units.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-varnix-value)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_COMPONENT_PYTHON_DESCRIPTION "${long_description}

This package holds the Python package varnix_value: quantities with bounds that
are certain, and conversions of numpy's arrays.")

# What tells other packages which one has which library, and the system that it is there.
set(debian_dir ${CMAKE_CURRENT_SOURCE_DIR}/cmake/debian)
function(value_object_shlibs component library)
    set(package ${CPACK_DEBIAN_${component}_PACKAGE_NAME})
    configure_file(${debian_dir}/shlibs.in ${library}/shlibs @ONLY)
    set(CPACK_DEBIAN_${component}_PACKAGE_CONTROL_EXTRA
        ${CMAKE_CURRENT_BINARY_DIR}/${library}/shlibs
        ${debian_dir}/triggers
        PARENT_SCOPE)
endfunction()
value_object_shlibs(RUNTIME libValueObject)
value_object_shlibs(TEXT_RUNTIME libValueObjectText)
value_object_shlibs(MEASUREMENT_RUNTIME libValueObjectMeasurement)
value_object_shlibs(C_RUNTIME libValueObjectC)

# The files that Debian wants in every package.
if(VALUE_OBJECT_DEBIAN_PACKAGES)
    add_custom_command(OUTPUT changelog.gz
        COMMAND gzip -9nc ${debian_dir}/changelog > changelog.gz
        DEPENDS ${debian_dir}/changelog)
    add_custom_target(ValueObject_changelog ALL DEPENDS changelog.gz)
    foreach(component_name IN LISTS CPACK_COMPONENTS_ALL)
        string(TOUPPER ${component_name} component)
        set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME})
        install(FILES ${debian_dir}/copyright ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz
            DESTINATION ${doc_dir} COMPONENT ${component_name})
    endforeach()
endif()

include(CPack)

# How every part of this project is compiled.

# Results are the same on every processor: each operation is rounded separately, so a product and a
# sum must not be contracted into one instruction.
set(VALUE_OBJECT_NUMBER_OPTIONS -ffp-contract=off)

# Not -Wfloat-equal: numbers are compared exactly where that is the promise (operator==), and with 1.0
# where a factor is to be left out that would change nothing.
set(VALUE_OBJECT_WARNING_OPTIONS
    -Wall
    -Wextra
    -Wpedantic
    -Wcast-align
    -Wcast-qual
    -Wconversion
    -Wdouble-promotion
    -Wformat=2
    -Wimplicit-fallthrough
    -Wnon-virtual-dtor
    -Wold-style-cast
    -Woverloaded-virtual
    -Wshadow
    -Wsign-conversion
    -Wundef
    -Wunused
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-branches>
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond>
    $<$<CXX_COMPILER_ID:GNU>:-Wlogical-op>
    # A note on ARM about programs built with a compiler older than the standard used here.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-psabi>)

# Of Debian's packages: no address that is called or read can be changed once a program runs.
set(VALUE_OBJECT_HARDENED_LINK LINKER:-z,relro,-z,now)

# C++17 without extensions, hidden visibility, the warnings above. They are errors where
# CMAKE_COMPILE_WARNING_AS_ERROR is set, as the presets do.
function(value_object_settings target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_compile_options(${target} PRIVATE
        ${VALUE_OBJECT_NUMBER_OPTIONS}
        # No folder of this machine in the debug information, so that builds can be compared.
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
        -ffile-prefix-map=${PROJECT_BINARY_DIR}=build
        ${VALUE_OBJECT_WARNING_OPTIONS}
        # Unique symbols would keep the library from ever being unloaded.
        $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    # What Debian hardens its packages with. (Programs are position-independent by Debian's compilers.)
    if(VALUE_OBJECT_DEBIAN_PACKAGES)
        target_compile_options(${target} PRIVATE
            -fstack-protector-strong -Werror=format-security -D_FORTIFY_SOURCE=2)
        target_link_options(${target} PRIVATE ${VALUE_OBJECT_HARDENED_LINK})
    endif()
endfunction()

# What the libraries have in common: their versions, their place at the top of the build folder, the check that their headers compile alone, and,
# where they are shared, that they call their own functions directly and export what `exports` lists.
function(value_object_library target exports)
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}
        ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}
        VERIFY_INTERFACE_HEADER_SETS ON)
    if(BUILD_SHARED_LIBS)
        target_link_options(${target} PRIVATE
            LINKER:--as-needed
            LINKER:-Bsymbolic-functions
            LINKER:--version-script=${PROJECT_SOURCE_DIR}/${exports}
            $<$<BOOL:${VALUE_OBJECT_DEBIAN_PACKAGES}>:${VALUE_OBJECT_HARDENED_LINK}>)
        set_target_properties(${target} PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/${exports})
    endif()
endfunction()

# Programs in C: C99 without extensions, and warnings as strict. C is switched on where it is first needed: nobody
# who only builds the libraries needs a compiler for it.
macro(value_object_c_settings target)
    enable_language(C)
    set_target_properties(${target} PROPERTIES
        C_STANDARD 99
        C_STANDARD_REQUIRED ON
        C_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE
        ${VALUE_OBJECT_NUMBER_OPTIONS}
        -Wall -Wextra -Wpedantic -Wcast-align -Wcast-qual -Wconversion -Wdouble-promotion -Wformat=2
        -Wmissing-prototypes -Wshadow -Wsign-conversion -Wstrict-prototypes -Wundef)
endmacro()

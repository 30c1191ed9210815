# The command-line tool value-object, on top of the library and its companion for text.
#
# CLI11 and nlohmann/json are headers only, and only the tool's own sources need them.

find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp)
find_path(NLOHMANN_JSON_INCLUDE_DIR nlohmann/json.hpp)
foreach(found IN ITEMS CLI11_INCLUDE_DIR NLOHMANN_JSON_INCLUDE_DIR)
    if(NOT ${found})
        message(FATAL_ERROR "${found} was not found.\n"
            "On Debian install: apt-get install libcli11-dev nlohmann-json3-dev\n"
            "Without the tool configure with -DVALUE_OBJECT_TOOL=OFF.")
    endif()
endforeach()

value_object_header_library(value_object_cli11 ${CLI11_INCLUDE_DIR} CLI)
value_object_header_library(value_object_json ${NLOHMANN_JSON_INCLUDE_DIR} nlohmann)

add_executable(value-object
    src/tool/main.cpp
    src/tool/Command_line.cpp
    src/tool/Completion.cpp
    src/tool/Compute.cpp
    src/tool/Convert.cpp
    src/tool/Convert_lines.cpp
    src/tool/Convert_table.cpp
    src/tool/Csv.cpp
    src/tool/List_units.cpp
    src/tool/Number_cells.cpp
    src/tool/Progress.cpp
    src/tool/Quantity_converter.cpp
    src/tool/Reports.cpp
    src/tool/Streams.cpp
    src/tool/Strict_conversions.cpp
    src/tool/Strict_operations.cpp
    src/tool/Strict_rules.cpp
    src/tool/Table_header.cpp
    src/tool/Table_writer.cpp
    src/tool/Unit_questions.cpp
    src/tool/Written_results.cpp)
value_object_settings(value-object)
# Files beyond 2 GiB, on 32-bit processors too.
target_compile_definitions(value-object PRIVATE
    VALUE_OBJECT_VERSION="${PROJECT_VERSION}"
    _FILE_OFFSET_BITS=64)
target_link_libraries(value-object PRIVATE
    ValueObject::Text
    ValueObject::ValueObject
    value_object_cli11
    value_object_json)

# What completes its command lines, where each shell looks for it. Debian's zsh looks elsewhere for
# what packages bring.
include(GNUInstallDirs)
set(zsh_completions site-functions)
if(VALUE_OBJECT_DEBIAN_PACKAGES)
    set(zsh_completions vendor-completions)
endif()
set(completions ${CMAKE_CURRENT_SOURCE_DIR}/src/tool/completions)
install(FILES ${completions}/value-object.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME value-object
    COMPONENT tool)
install(FILES ${completions}/_value-object
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/${zsh_completions}
    COMPONENT tool)
install(FILES ${completions}/value-object.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
    COMPONENT tool)

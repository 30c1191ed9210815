# Boost's headers: Boost.Assign writes the tables. Only the library's own sources need them; no
# public header does.

find_package(Boost 1.74 QUIET)
if(NOT Boost_FOUND)
    message(FATAL_ERROR
        "Boost's headers (1.74 or later) were not found.\n"
        "On Debian install them with: apt-get install libboost-dev\n"
        "Elsewhere set Boost_ROOT to the folder that holds include/boost.")
endif()

# For another processor the folder around boost/ must stay out of the search: it holds this
# machine's system headers.
set(boost_include_dir ${Boost_INCLUDE_DIRS})
if(CMAKE_CROSSCOMPILING)
    set(boost_include_dir ${CMAKE_CURRENT_BINARY_DIR}/boost_headers)
    file(MAKE_DIRECTORY ${boost_include_dir})
    file(CREATE_LINK ${Boost_INCLUDE_DIRS}/boost ${boost_include_dir}/boost SYMBOLIC)
endif()
add_library(value_object_boost INTERFACE)
target_include_directories(value_object_boost SYSTEM INTERFACE ${boost_include_dir})

# Boost's headers: Boost.Assign writes the tables. Only the library's own sources need them; no
# public header does.

find_package(Boost 1.74 QUIET)
if(NOT Boost_FOUND)
    message(FATAL_ERROR
        "Boost's headers (1.74 or later) were not found.\n"
        "On Debian install them with: apt-get install libboost-dev\n"
        "Elsewhere set Boost_ROOT to the folder that holds include/boost.")
endif()

value_object_header_library(value_object_boost ${Boost_INCLUDE_DIRS} boost)

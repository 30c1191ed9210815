# Boost's headers: Boost.Assign writes the tables. Only the library's own sources need them; no
# public header does.

find_package(Boost 1.74 QUIET)
if(NOT Boost_FOUND)
    message(FATAL_ERROR
        "Boost's headers (1.74 or later) were not found.\n"
        "On Debian install them with: apt-get install libboost-dev\n"
        "Elsewhere set Boost_ROOT to the folder that holds include/boost.")
endif()
if(NOT TARGET Boost::headers)
    add_library(Boost::headers INTERFACE IMPORTED)
    target_include_directories(Boost::headers SYSTEM INTERFACE ${Boost_INCLUDE_DIRS})
endif()

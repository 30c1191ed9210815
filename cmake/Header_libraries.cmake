# Libraries of other people that are headers only.

# value_object_header_library(TARGET FOLDER PART): the headers FOLDER/PART, without warnings of
# their own. For another processor FOLDER stays out of the search, since it holds this machine's
# system headers: PART is reached through a link.
function(value_object_header_library target folder part)
    if(CMAKE_CROSSCOMPILING)
        set(links ${PROJECT_BINARY_DIR}/header_libraries/${part})
        file(MAKE_DIRECTORY ${links})
        file(CREATE_LINK ${folder}/${part} ${links}/${part} SYMBOLIC)
        set(folder ${links})
    endif()
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE ${folder})
endfunction()

# Finds the library; it's "optional".
cmake_minimum_required(VERSION 3.25)
project(sample VERSION 1.2.0 LANGUAGES CXX)
#[[ A comment
    over lines: if(TRUE) ]]
option(SAMPLE_TESTS "Build the tests # too" ON) # really
set(sources main.cpp "with blank.cpp" ${more_sources})
if(NOT DEFINED ENV{HOME} AND CMAKE_VERSION VERSION_LESS 3.30)
    message(STATUS "It's ${CMAKE_VERSION}\n")
elseif(WIN32 OR sample MATCHES "^a.*")
    include(GNUInstallDirs)
else()
    return()
endif()
add_library(sample STATIC ${sources})
target_link_libraries(sample PUBLIC Qt6::Core PRIVATE $<$<CONFIG:Debug>:debug>)
foreach(name IN ITEMS a b c)
    list(APPEND names ${name})
endforeach()
function(lay name)
    set(path [[raw "text"]] PARENT_SCOPE)
endfunction()
install(TARGETS sample RUNTIME DESTINATION bin)

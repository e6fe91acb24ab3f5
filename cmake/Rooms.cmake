# A room is a folder, a static library and a link target; whom it may know is its LINKS list.
# Sources are globbed so that a new file needs no second list.

# grdx_room(NAME FOLDER [LINKS target...])
function(grdx_room name folder)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp
       ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h)
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS})
endfunction()

# grdx_test(NAME FOLDER LINKS target...): one test program for the files directly in tests/FOLDER.
# A folder without test files makes no program.
function(grdx_test name folder)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gmock GTest::gtest_main)
  add_test(NAME ${name} COMMAND ${name} --gtest_shuffle WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
endfunction()

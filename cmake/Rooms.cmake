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

# grdx_precompiled(NAME LIBRARY HEADER...): headers parsed once for every target that reuses NAME's.
# Files still include what they use: `make lint` compiles each without precompiled headers.
function(grdx_precompiled name library)
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE ${library})
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

# grdx_test(NAME FOLDER LINKS target... [PRECOMPILED NAME|OFF] [BESIDE_SERVER]): one test program for
# the files directly in tests/FOLDER, run with a database server of its own when it asks for one. A
# folder without test files makes no program.
function(grdx_test name folder)
  cmake_parse_arguments(ARG "BESIDE_SERVER" "PRECOMPILED" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gmock GTest::gtest_main)
  if(NOT DEFINED ARG_PRECOMPILED)
    set(ARG_PRECOMPILED test_headers)
  endif()
  if(ARG_PRECOMPILED)
    target_precompile_headers(${name} REUSE_FROM ${ARG_PRECOMPILED})
  endif()
  # What is measured and delivered is optimized; what tests it is compiled often.
  target_compile_options(${name} PRIVATE -O0)
  set(server)
  if(ARG_BESIDE_SERVER)
    set(server ${PROJECT_SOURCE_DIR}/tools/test_server.sh)
  endif()
  add_test(NAME ${name} COMMAND ${server} $<TARGET_FILE:${name}> --gtest_shuffle
           WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
endfunction()

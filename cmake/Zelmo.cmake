include(GoogleTest)

# zelmo_subsystem(NAME DEPS...): one library of every *.cpp in the folder
# that is not a test, and one test program of every *_test.cpp beside it.
function(zelmo_subsystem name)
  cmake_parse_arguments(ARG "" "" "DEPS;TEST_DEPS" ${ARGN})
  file(GLOB all_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB test_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.cpp)
  set(lib_sources ${all_sources})
  if(test_sources)
    list(REMOVE_ITEM lib_sources ${test_sources})
  endif()
  if(lib_sources)
    add_library(${name} STATIC ${lib_sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_DEPS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE ${ARG_DEPS})
  endif()
  if(ZELMO_BUILD_TESTS AND test_sources)
    add_executable(${name}_tests ${test_sources})
    target_link_libraries(${name}_tests PRIVATE ${name} zelmo_testing
                          ${ARG_TEST_DEPS} zelmo_test_main)
    # Every test case is a test of its own, so a failure names its test. The
    # list is read when ctest runs, not at build time.
    gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST)
  endif()
endfunction()

# zelmo_stage_program(TARGET FOLDER NAME): copies a program, after each
# build, into the staged program tree as FOLDER/NAME, the name the program
# starts it by.
function(zelmo_stage_program target folder name)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E make_directory ${ZELMO_DIST_DIR}/${folder}
    COMMAND ${CMAKE_COMMAND} -E copy $<TARGET_FILE:${target}> ${ZELMO_DIST_DIR}/${folder}/${name}
    VERBATIM)
endfunction()

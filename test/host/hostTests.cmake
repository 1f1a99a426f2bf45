add_library(probe MODULE host/probe.cpp)
target_include_directories(probe PRIVATE ${PROJECT_SOURCE_DIR}/host)
target_link_libraries(probe PRIVATE wavepitchWarnings)
set_target_properties(probe PROPERTIES PREFIX "" SUFFIX .so)

wavepitchTest(mexhostTest host/mexhost.cpp)
target_compile_definitions(mexhostTest PRIVATE
  MEXHOST_PROGRAM="$<TARGET_FILE:mexhost>"
  MEXHOST_PROBE="$<TARGET_FILE:probe>"
  MEXHOST_WAVE2PFMAT="$<TARGET_FILE:wave2pfMat>"
  MEXHOST_LIBRARY="$<TARGET_FILE:wavepitchLibrary>")
add_dependencies(mexhostTest mexhost probe wave2pfMat wavepitchLibrary)

add_executable(shellTest host/shell.cpp)   # of the library it sees what a user sees
target_link_libraries(shellTest PRIVATE GTest::gtest_main ${SNDFILE_LIBRARY} wavepitchWarnings)
add_test(NAME shellTest COMMAND shellTest)
target_compile_definitions(shellTest PRIVATE
  WAVEPITCH_COMPLETION="$<TARGET_FILE_DIR:wavepitch>/host/shell/completion/wavepitch"
  WAVEPITCH_EXAMPLES="${PROJECT_SOURCE_DIR}/examples"
  WAVEPITCH_FOLDER="$<TARGET_FILE_DIR:wavepitch>"
  WAVEPITCH_PACKAGE="${PROJECT_SOURCE_DIR}/package")
add_dependencies(shellTest wavepitch shellPages)

add_test(NAME hostSymbols COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/host/hostSymbols ${PROJECT_SOURCE_DIR}/host/mex.h
  $<TARGET_FILE:wave2pfMat> $<TARGET_FILE:wavepitchLibrary>)

# The module in GNU Octave, against the same module in mexhost.
find_program(OCTAVE_CLI octave-cli)
if(OCTAVE_CLI AND MKOCTFILE)
  add_test(NAME octaveTest COMMAND ${OCTAVE_CLI} --norc --no-history --quiet
    --path ${PROJECT_BINARY_DIR}/octave/wave2pfMat ${CMAKE_CURRENT_SOURCE_DIR}/host/inOctave.m
    $<TARGET_FILE:mexhost> $<TARGET_FILE:wave2pfMat> $<TARGET_FILE:probe> ${PROJECT_SOURCE_DIR}/examples)
  if(CMAKE_CXX_FLAGS MATCHES fsanitize)   # Octave itself is not built with the sanitizers: they come first
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
      OUTPUT_VARIABLE sanitizer OUTPUT_STRIP_TRAILING_WHITESPACE)
    set_tests_properties(octaveTest PROPERTIES
      ENVIRONMENT "LD_PRELOAD=${sanitizer};ASAN_OPTIONS=detect_leaks=0")
  endif()
else()
  add_test(NAME octaveTest COMMAND ${CMAKE_COMMAND} -E echo
    "skipped: GNU Octave not found (Debian packages octave, octave-dev)")
  set_tests_properties(octaveTest PROPERTIES SKIP_REGULAR_EXPRESSION skipped)
endif()

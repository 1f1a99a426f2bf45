# The Octave package and the module behind it in the real host.
add_executable(libraryReference package/reference.cpp $<TARGET_OBJECTS:operations>)
target_include_directories(libraryReference PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(libraryReference PRIVATE
  wavepitch::audio wavepitch::standIn wavepitchWarnings)
target_compile_definitions(libraryReference PRIVATE WAVEPITCH_EXAMPLES="${PROJECT_SOURCE_DIR}/examples")

set(here ${CMAKE_CURRENT_SOURCE_DIR}/package)
function(packageTest name)
  if(NOT OCTAVE_CLI OR NOT MKOCTFILE)
    add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -E echo "skipped: GNU Octave not found")
    set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION skipped)
    return()
  endif()
  add_test(NAME ${name} COMMAND ${atPrompt} ${OCTAVE_CLI} --norc --no-history --quiet --path ${here} ${ARGN})
  if(CMAKE_CXX_FLAGS MATCHES fsanitize)
    set_tests_properties(${name} PROPERTIES
      ENVIRONMENT "LD_PRELOAD=${sanitizer};ASAN_OPTIONS=detect_leaks=0")
  endif()
endfunction()

set(fromBuild --path ${PROJECT_SOURCE_DIR}/package/inst --path ${PROJECT_BINARY_DIR}/octave/wavepitchLibrary)
packageTest(badInputTest ${fromBuild} ${here}/badInput.m ${here})
set(atPrompt sh -c "exec \"$0\" \"$@\" <${here}/interrupted.m")   # a prompt has no script
packageTest(interruptedTest ${fromBuild} --interactive)
unset(atPrompt)
packageTest(sameBitsTest ${fromBuild} ${here}/sameBits.m
  $<TARGET_FILE:libraryReference> ${PROJECT_SOURCE_DIR}/examples ${PROJECT_SOURCE_DIR}/package/inst ${here})

# Pictures are drawn by what no sanitizer sees, from calls that the tests above make, too; and the package compiles
# its sources itself. One build is as good as another.
if(NOT CMAKE_CXX_FLAGS MATCHES fsanitize)
  packageTest(picturesTest ${fromBuild} ${here}/pictures.m)
  packageTest(galleryTest ${fromBuild} ${PROJECT_SOURCE_DIR}/examples/gallery/gallery.m
    ${PROJECT_BINARY_DIR}/gallery)
  packageTest(tarballTest ${here}/installed.m ${PROJECT_SOURCE_DIR}/package/makeTarball
    ${PROJECT_BINARY_DIR}/package)
  # The longest one first, and its compilation as short as can be: what it makes is tested, not how fast that is.
  set(fastCompilation OPTIMIZATION=-O1)
  if(MKOCTFILE AND CMAKE_CXX_COMPILER_LAUNCHER)   # what compiles this build again in no time does so for the package
    execute_process(COMMAND ${MKOCTFILE} -p CXX OUTPUT_VARIABLE compiler OUTPUT_STRIP_TRAILING_WHITESPACE)
    list(APPEND fastCompilation "CXX=${CMAKE_CXX_COMPILER_LAUNCHER} ${compiler}")
  endif()
  set_tests_properties(tarballTest PROPERTIES COST 100 ENVIRONMENT "${fastCompilation}")
endif()

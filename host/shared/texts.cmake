# packageTexts(FILE): writes the package's help as C++: its INDEX, and the first comment of each function.
function(packageTexts output)
  set(package ${PROJECT_SOURCE_DIR}/package)
  file(GLOB functions CONFIGURE_DEPENDS ${package}/inst/*.m)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${functions} ${package}/INDEX)
  file(READ ${package}/INDEX index)
  set(texts "")
  foreach(path IN LISTS functions)
    cmake_path(GET path STEM name)
    file(READ ${path} text)
    string(FIND "${text}" "\n\n" end)
    string(SUBSTRING "${text}" 0 ${end} text)
    string(APPEND texts "    {\"${name}\", R\"text(${text}\n)text\"},\n")
  endforeach()
  file(CONFIGURE OUTPUT ${output} @ONLY CONTENT [[
#include "texts.hpp"

const char* const packageIndex = R"text(@index@)text";

const std::vector<HelpText> helpTexts = {
@texts@};
]])
endfunction()

# Generates a source file that defines ko::englishStrings() from a string file.
function(ko_embed_strings input output)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${input})
  file(READ ${input} content)
  string(CONCAT source
    "#include \"support/StringTable.h\"\n\nnamespace ko {\n\n"
    "std::string_view englishStrings()\n{\n    return R\"strings(${content})strings\";\n}\n\n} // namespace ko\n")
  file(CONFIGURE OUTPUT ${output} CONTENT "${source}" @ONLY)
endfunction()

# Generates a header with a constant textNumber::GROUP::NAME for each line of a file of names.
function(ko_name_texts input output)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${input})
  file(STRINGS ${input} lines REGEX "^[^#]")
  set(source "#pragma once\n\nnamespace ko::textNumber {\n")
  set(end "")
  foreach(line IN LISTS lines)
    if(line MATCHES "^\\[([A-Za-z]+)\\]$")
      string(APPEND source "${end}\nnamespace ${CMAKE_MATCH_1} {\n")
      set(end "} // namespace ${CMAKE_MATCH_1}\n")
    elseif(line MATCHES "^([0-9]+) ([A-Za-z]+)$")
      string(APPEND source "inline constexpr int ${CMAKE_MATCH_2} = ${CMAKE_MATCH_1};\n")
    else()
      message(FATAL_ERROR "${input}: neither a group nor a name: ${line}")
    endif()
  endforeach()
  file(CONFIGURE OUTPUT ${output} CONTENT "${source}${end}\n} // namespace ko::textNumber\n" @ONLY)
endfunction()

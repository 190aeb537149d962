# Turns a string file into a source file that holds its content as ko::englishStrings().
function(ko_embed_strings input output)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${input})
  file(READ ${input} content)
  string(CONCAT source
    "#include \"support/StringTable.h\"\n\nnamespace ko {\n\n"
    "std::string_view englishStrings()\n{\n    return R\"strings(${content})strings\";\n}\n\n} // namespace ko\n")
  file(CONFIGURE OUTPUT ${output} CONTENT "${source}" @ONLY)
endfunction()

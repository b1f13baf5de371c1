# Assembles a script template: replaces each line {{INCLUDE FILE}} by the text of FILE in the folder "shared" beside the
# template, and {{HELPER_NAME}} in that text by the template's name.
#
#   cmake -D TEMPLATE=FILE -D OUTPUT=FILE -P AssembleTemplate.cmake
file(READ ${TEMPLATE} text)
get_filename_component(folder ${TEMPLATE} DIRECTORY)
get_filename_component(name ${TEMPLATE} NAME_WE)
string(REGEX MATCHALL "{{INCLUDE [A-Za-z0-9_.]+}}\n" lines "${text}")
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^{{INCLUDE (.*)}}\n$" "\\1" shared "${line}")
  file(READ ${folder}/shared/${shared} function)
  string(REPLACE "{{HELPER_NAME}}" ${name} function "${function}")
  string(REPLACE "${line}" "${function}" text "${text}")
endforeach()
# file(READ) drops carriage returns. @ONLY would replace @NAME@; no template contains such a text.
file(CONFIGURE OUTPUT ${OUTPUT} CONTENT "${text}" @ONLY NEWLINE_STYLE CRLF)
file(TOUCH ${OUTPUT})

# Writes a script template with the functions that it shares with others: each line {{INCLUDE FILE}} becomes the text of FILE
# in the folder "shared" beside the template, and {{HELPER_NAME}} there the template's own name.
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
# Reading leaves out carriage returns. No template has a text between two @ that could be a variable's name.
file(CONFIGURE OUTPUT ${OUTPUT} CONTENT "${text}" @ONLY NEWLINE_STYLE CRLF)
file(TOUCH ${OUTPUT})

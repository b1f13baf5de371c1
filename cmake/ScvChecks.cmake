# Checks of the sources, as tests of the native build.
function(scv_check name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND;PROPERTIES")
  add_test(NAME check.${name} COMMAND ${arg_COMMAND} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(check.${name} PROPERTIES LABELS check TIMEOUT 3600 ${arg_PROPERTIES})
endfunction()

scv_check(format COMMAND ${scripts}/check-format.sh PROPERTIES LABELS "check;quick")
scv_check(includes COMMAND ${scripts}/check-includes.sh PROPERTIES LABELS "check;quick")
scv_check(scripts COMMAND sh -c "shellcheck *.sh scripts/*.sh .ci/run" PROPERTIES LABELS "check;quick")
# At low priority: they use the processor time that the other tests leave while waiting for windows and launches.
scv_check(cppcheck COMMAND ${politely} ${scripts}/check-cppcheck.sh PROPERTIES COST 200)
foreach(preset tidy tidy-windows)
  scv_check(${preset} COMMAND ${politely} ${CMAKE_COMMAND} --workflow --preset ${preset} PROPERTIES COST 400)
endforeach()
scv_check(headers COMMAND ${headers_alone} PROPERTIES COST 200)
# The same sources give the same bytes, wherever and whenever.
add_test(NAME package.same-bytes COMMAND ${politely} ${scripts}/package.sh --check WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
set_tests_properties(package.same-bytes PROPERTIES LABELS package COST 300 TIMEOUT 1500 RESOURCE_LOCK x86.build)

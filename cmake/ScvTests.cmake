# The tests that CTest runs in a build. Labels: quick (native, without a display, in seconds), wine, gui (mouse and keyboard on a
# desktop), package, check (of the sources), fuzz. ./test.sh runs the tests of all builds at once.
include(GoogleTest)

set(scripts ${PROJECT_SOURCE_DIR}/scripts)
set(politely nice -n 15)
set(headers_alone ${politely} ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target all_verify_interface_header_sets)
# A test that skips itself or does not exist counts as failed.
set(not_passed "\\[  SKIPPED \\]|Running 0 tests")
set(skips_fail SKIP_REGULAR_EXPRESSION "nothing counts as skipped")

if(SCV_VALGRIND)
  # The excluded test makes a million conversions, which would take a minute. AVX2 is off because some of glibc's AVX2 functions
  # read past the end of a block on purpose, and valgrind reports those that it does not know.
  add_test(NAME valgrind COMMAND valgrind -q --error-exitcode=9 --leak-check=full --show-leak-kinds=definite
    --errors-for-leak-kinds=definite $<TARGET_FILE:scv_tests> --gtest_filter=-ZoneTest.AYearHasEachOccurrenceOnceAndMissesNone)
  set_tests_properties(valgrind PROPERTIES COST 300 TIMEOUT 1500 FAIL_REGULAR_EXPRESSION ${not_passed}
    ENVIRONMENT "SCV_TEST_TIMEOUT=600;GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2")
  return()
endif()

if(NOT WIN32)
  gtest_discover_tests(scv_tests TEST_PREFIX native. DISCOVERY_MODE PRE_TEST
    PROPERTIES LABELS quick TIMEOUT 300 ${skips_fail} FAIL_REGULAR_EXPRESSION ${not_passed})
  add_test(NAME native.soak COMMAND scv_tests --gtest_filter=Soak.*)
  set_tests_properties(native.soak PROPERTIES COST 100 TIMEOUT 1500 FAIL_REGULAR_EXPRESSION ${not_passed}
    ENVIRONMENT "SCV_SOAK=whole;SCV_TEST_TIMEOUT=600")
  include(ScvChecks)
  return()
endif()

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(arch x64)
  set(kind x64)  # of the package: not the one that ships
else()
  set(arch x86)
endif()
# The emulator (scripts/wine-tests.sh) prints an exit code other than 0, because CTest ignores it for a test with
# PASS_REGULAR_EXPRESSION. With warn+heap Wine writes patterns around and into blocks, and reports a block that was overwritten or
# freed twice. Tests that may show windows run one at a time, because they share the keyboard and the registry. So they start
# early (COST), beside clang-tidy at low priority; what can run side by side comes last.
set(run_under_wine ${skips_fail} LABELS wine FIXTURES_REQUIRED ${arch}.prefix TIMEOUT 1500 COST 350
  PASS_REGULAR_EXPRESSION "\\[  PASSED  \\] [1-9]"
  FAIL_REGULAR_EXPRESSION "${not_passed}|:heap:|invalid handle|Exit code [0-9]")
if(NOT CMAKE_HOST_WIN32)
  set(fixture ${scripts}/wine-tests.sh)
  set_target_properties(scv_tests scv_zone_tests underdebugger PROPERTIES CROSSCOMPILING_EMULATOR "${fixture};run;${arch}")
  add_test(NAME ${arch}.prefix COMMAND ${fixture} start ${arch})
  add_test(NAME ${arch}.prefix-end COMMAND ${fixture} stop ${arch})
  set_tests_properties(${arch}.prefix PROPERTIES FIXTURES_SETUP ${arch}.prefix COST 1000 TIMEOUT 300 LABELS wine)
  # CTest starts those tests first that another one waits for: so clang-tidy runs beside the tests that need the prefix.
  set_tests_properties(${arch}.prefix-end PROPERTIES FIXTURES_CLEANUP ${arch}.prefix TIMEOUT 60 LABELS wine
    DEPENDS "check.tidy;check.tidy-windows")
endif()

gtest_discover_tests(scv_tests TEST_PREFIX ${arch}. DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 300
  PROPERTIES ${run_under_wine} RESOURCE_LOCK ${arch}.windows ENVIRONMENT WINEDEBUG=-all,err+heap,warn+heap)

# Each zone in a process of its own. Zones whose rules are wrong in Wine are left out.
foreach(zone UTC Asia/Kolkata Asia/Kathmandu Europe/Berlin Europe/London America/New_York America/Havana America/St_Johns
    Australia/Sydney Pacific/Chatham)
  add_test(NAME ${arch}.zone.${zone} COMMAND scv_zone_tests --gtest_filter=-Soak.*)
  set_tests_properties(${arch}.zone.${zone} PROPERTIES ${run_under_wine} ENVIRONMENT "TZ=${zone};SCV_TEST_ZONE=${zone}")
endforeach()

if(arch STREQUAL x64)
  # The suites that use handles, once more under a debugger: only then does Wine report a handle that is closed twice. No test
  # in them may throw: under the debugger an exception ends or hangs the program.
  set(suites Registry FileTests TextFile WindowsFileSystem WindowsShell PrivateProfileApi Scvsched ProcessHardening ScriptDlg
    ScriptFunctionDlg ProjectList SCVSchedulerDlg)
  list(LENGTH suites count)
  list(JOIN suites ".*:" filter)
  add_test(NAME ${arch}.handles COMMAND underdebugger $<TARGET_FILE:scv_tests> --gtest_filter=${filter}.*)
  set_tests_properties(${arch}.handles PROPERTIES ${run_under_wine} RESOURCE_LOCK ${arch}.windows COST 200 ENVIRONMENT SCV_KILL_ROUNDS=10
    PASS_REGULAR_EXPRESSION "from ${count} test suites ran[^\\[]*\\[  PASSED  \\] [1-9]")

  # Wine reads TZ when a process starts.
  add_test(NAME ${arch}.soak COMMAND scv_zone_tests --gtest_filter=Soak.*)
  set_tests_properties(${arch}.soak PROPERTIES ${run_under_wine} COST 100
    ENVIRONMENT "TZ=Europe/Berlin;SCV_SOAK=whole;SCV_TEST_TIMEOUT=600")
endif()

if(CMAKE_HOST_WIN32)
  return()
endif()
if(arch STREQUAL x64)
  # Compares the templates that extract elements with html5lib and soupsieve, on generated pages.
  add_test(NAME ${arch}.elements COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/script/compare_elements.py --pages 150
    ${fixture} run ${arch} $<TARGET_FILE:templaterun> WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(${arch}.elements PROPERTIES LABELS wine FIXTURES_REQUIRED ${arch}.prefix COST 100 TIMEOUT 1500)

  add_test(NAME check.headers-windows COMMAND ${headers_alone})
  set_tests_properties(check.headers-windows PROPERTIES LABELS check COST 200 TIMEOUT 3600 RESOURCE_LOCK ${arch}.build)
endif()
add_test(NAME ${arch}.package COMMAND ${scripts}/package.sh ${kind})
set_tests_properties(${arch}.package PROPERTIES LABELS package FIXTURES_SETUP ${arch}.package TIMEOUT 600 COST 600
  RESOURCE_LOCK ${arch}.build)
# The suites that use the shipped programs as users do, each with displays and prefixes of its own.
file(GLOB suites CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/journeys/test_*.py ${CMAKE_CURRENT_SOURCE_DIR}/cli/test_*.py)
foreach(suite IN LISTS suites)
  string(REGEX REPLACE ".*/test_(.*)\\.py" "\\1" name ${suite})
  add_test(NAME ${arch}.${name} COMMAND ${suite})
  set_tests_properties(${arch}.${name} PROPERTIES LABELS gui COST 500 TIMEOUT 1500 ENVIRONMENT SCV_ARCH=${arch}
    FAIL_REGULAR_EXPRESSION "skipped=|Ran 0 tests")
  if(name STREQUAL installer)
    set_tests_properties(${arch}.${name} PROPERTIES LABELS package FIXTURES_REQUIRED ${arch}.package)
  endif()
endforeach()

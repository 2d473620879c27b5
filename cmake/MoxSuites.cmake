# Read by CTest, not by CMake: tells CTest the suites of a GoogleTest program, each of them one run of it. A run for
# each case would cost ten times what the cases do, for programs that load Qt; one for all of them would leave
# processors idle and tell less.

# mox_add_suites(ROOM PROGRAM LIST ENVIRONMENT LONGEST): the tests ROOM.SUITE, those that match LONGEST first. What the
# program said is kept in the file LIST until it is built anew.
function(mox_add_suites room program list environment longest)
  if(NOT EXISTS ${program})
    # Fails, unless another room was asked for.
    add_test(${room}.NotBuilt ${program})
    set_tests_properties(${room}.NotBuilt PROPERTIES LABELS ${room})
    return()
  endif()
  if(NOT EXISTS ${list} OR NOT ${list} IS_NEWER_THAN ${program})
    execute_process(COMMAND ${program} --gtest_list_tests
      OUTPUT_VARIABLE said RESULT_VARIABLE result TIMEOUT 60)
    if(NOT result EQUAL 0)
      message(FATAL_ERROR "${program} did not list its tests: ${result}\n${said}")
    endif()
    file(WRITE ${list} "${said}")
  endif()
  # A suite begins its line and ends in a dot, before the type that it is for, if any.
  file(STRINGS ${list} suites REGEX "^[^ ]+\\.( .*)?$")
  foreach(suite IN LISTS suites)
    string(REGEX REPLACE "\\.( .*)?$" "" suite "${suite}")
    add_test(${room}.${suite} ${program} --gtest_filter=${suite}.*)
    set_tests_properties(${room}.${suite} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 600 LABELS ${room})
    if(longest AND suite MATCHES "^(${longest})$")
      set_tests_properties(${room}.${suite} PROPERTIES COST 10)
    endif()
  endforeach()
endfunction()

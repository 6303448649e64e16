# SPDX-License-Identifier: MIT
# Whatever passed need not be asked again: each check leaves a stamp in the build's folder, and the
# target `passed` runs those whose stamp is missing or older than what the check depends on.

add_custom_target(passed)
set_property(GLOBAL PROPERTY JOB_POOLS alone=1)

# vnb_stamped(NAME STAMP): makes the stamp, which the caller has a command for, a part of `passed`.
function(vnb_stamped name stamp)
  add_custom_target(${name} DEPENDS ${stamp})
  add_dependencies(passed ${name})
endfunction()

# vnb_check(NAME COMMAND... DEPENDS... [ALONE]): a test that ctest runs whenever it is asked to, and
# `passed` only when one of the files, folders or programs under DEPENDS has changed. A folder changes
# when what it lists does. ALONE: no other such test runs beside it.
function(vnb_check name)
  cmake_parse_arguments(arg "ALONE" "" "COMMAND;DEPENDS" ${ARGN})
  set(environment QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
      LSAN_OPTIONS=suppressions=${VNB_ROOT}/tests/leaks.supp:print_suppressions=0)
  set(seconds 600) # for what hangs
  add_test(NAME ${name} COMMAND ${arg_COMMAND})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${seconds} RUN_SERIAL ${arg_ALONE}
                                          ENVIRONMENT "${environment}")
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${name}.passed)
  set(pool)
  if(arg_ALONE)
    set(pool JOB_POOL alone)
  endif()
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -E env ${environment} ${VNB_ROOT}/tools/stamped ${seconds} ${stamp}
            ${arg_COMMAND}
    DEPENDS ${arg_DEPENDS} ${VNB_ROOT}/tests/leaks.supp ${VNB_ROOT}/tools/stamped
    COMMENT "Testing: ${name}"
    ${pool} VERBATIM)
  vnb_stamped(passed_${name} ${stamp})
endfunction()

# vnb_tree(VARIABLE FOLDER...): all files and folders below the folders, and these.
function(vnb_tree variable)
  set(globs ${ARGN})
  list(TRANSFORM globs APPEND /*)
  file(GLOB_RECURSE found LIST_DIRECTORIES true CONFIGURE_DEPENDS ${globs})
  set(${variable} ${ARGN} ${found} PARENT_SCOPE)
endfunction()

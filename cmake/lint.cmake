# SPDX-License-Identifier: MIT
# The linter as a part of `passed`: for each target its sources in one piece, so that the large headers
# are read once for all of them.

# vnb_lint(TARGET): lints the target's own sources with its own flags, and those of its property
# VNB_LINT_FLAGS.
function(vnb_lint target)
  get_target_property(listed ${target} SOURCES)
  get_target_property(folder ${target} SOURCE_DIR)
  set(sources)
  foreach(source ${listed})
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder})
    cmake_path(IS_PREFIX PROJECT_BINARY_DIR ${source} generated)
    if(NOT generated)
      list(APPEND sources ${source})
    endif()
  endforeach()
  if(NOT sources)
    return()
  endif()
  set(stamp ${PROJECT_BINARY_DIR}/lint/${target})
  set(includes "$<FILTER:$<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>,INCLUDE,^/usr/[^/]+/>")
  set(definitions "$<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>")
  add_custom_command(
    OUTPUT ${stamp}.passed
    COMMAND
      ${VNB_ROOT}/tools/lint ${stamp} ${sources} -- -std=gnu++20 -I${VNB_ROOT} -I${folder}
      "$<TARGET_PROPERTY:${target},COMPILE_OPTIONS>" "-D$<JOIN:${definitions},;-D>"
      "-isystem$<JOIN:${includes},;-isystem>" "$<TARGET_PROPERTY:${target},VNB_LINT_FLAGS>"
    DEPENDS ${sources} ${VNB_ROOT}/.clang-tidy ${VNB_ROOT}/tools/lint
    DEPFILE ${stamp}.d
    COMMENT "Linting: ${target}"
    COMMAND_EXPAND_LISTS VERBATIM)
  vnb_stamped(lint_${target} ${stamp}.passed)
endfunction()

# vnb_lint_all(FOLDER...): lints every library and program that the folders declare.
function(vnb_lint_all)
  foreach(folder ${ARGN})
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
      get_target_property(type ${target} TYPE)
      if(type MATCHES "LIBRARY|EXECUTABLE" AND NOT type STREQUAL INTERFACE_LIBRARY)
        vnb_lint(${target})
      endif()
    endforeach()
  endforeach()
endfunction()

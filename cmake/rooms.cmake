# SPDX-License-Identifier: MIT
# One warning target and one way to declare a room, so that no folder repeats flags.

add_library(vnb_flags INTERFACE)
target_compile_features(vnb_flags INTERFACE cxx_std_20)
# GCC 12 sees overlapping copies where two strings are added; there are none.
target_compile_options(vnb_flags INTERFACE -Wall -Wextra -Wshadow -Wconversion
                                           $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_definitions(vnb_flags INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII
                                               QT_NO_CAST_TO_ASCII)
set(VNB_ROOT ${PROJECT_SOURCE_DIR} CACHE INTERNAL "The root that includes are written from")

# vnb_room(NAME LIBS...): the static library vnb_NAME of all sources in the current folder. Only
# LIBS, and what they link, can be used from it.
function(vnb_room name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  list(FILTER sources EXCLUDE REGEX /main[.]cpp$)
  add_library(vnb_${name} STATIC ${sources})
  target_include_directories(vnb_${name} PUBLIC ${VNB_ROOT})
  target_link_libraries(vnb_${name} PUBLIC ${ARGN} PRIVATE vnb_flags)
  target_compile_features(vnb_${name} PUBLIC cxx_std_20)
endfunction()

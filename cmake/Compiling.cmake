# Doubles must be rounded after each step, in the order written. Otherwise a compiler may fuse a
# product with a sum, or turn pow(x, -1.0) into 1 / x, which gives different bits.
add_library(trelvon_arithmetic INTERFACE)
target_compile_options(trelvon_arithmetic INTERFACE
  $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-ffp-contract=off;-fno-builtin-pow>)

add_library(trelvon_warnings INTERFACE)
target_compile_options(trelvon_warnings INTERFACE
  $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-Wall;-Wextra;-Wpedantic;-Wconversion>
  $<$<AND:$<CXX_COMPILER_ID:GNU,Clang,AppleClang>,$<NOT:$<BOOL:${TRELVONUNITS_UNITE}>>>:-Wshadow>)
if(TRELVONUNITS_DEVELOPER)
  target_compile_options(trelvon_warnings INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-Werror>)
endif()

# Hidden visibility does not apply to templates of the standard library: a std::map of our records
# is exported as a weak symbol, unless a version script lists the interface.
function(trelvon_export_only_the_interface library)
  if(UNIX AND NOT APPLE)
    set(map ${PROJECT_SOURCE_DIR}/cmake/TrelvonUnits.map)
    target_link_options(${library} PRIVATE LINKER:--version-script=${map})
    set_property(TARGET ${library} APPEND PROPERTY LINK_DEPENDS ${map})
  endif()
endfunction()

# Headers that nearly every source of a target reads, read once. It is off in hosts' builds and in
# the preset `plain`, which shows that each source includes what it needs. Compiler caches cannot
# reuse what is compiled this way, so if a cache is set, it is preferred.
function(trelvon_precompile target)
  if(TRELVONUNITS_PRECOMPILE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    list(TRANSFORM ARGN REPLACE "(.+)" "<\\1>" OUTPUT_VARIABLE headers)
    target_precompile_headers(${target} PRIVATE ${headers})
  endif()
endfunction()

# Compiles up to eight sources of a room at once, if a build is only for tests: they share what their
# headers instantiate. Locals of one source may then hide names of another, so -Wshadow is left to
# other builds.
function(trelvon_unite target)
  if(NOT TRELVONUNITS_UNITE)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    cmake_path(GET source PARENT_PATH room)
    cmake_path(GET room FILENAME room)
    math(EXPR count_${room} "0${count_${room}} + 1")
    math(EXPR group "${count_${room}} / 8")
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${room}${group})
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()

# Compiles tests without optimization, which would take half of the compile time.
function(trelvon_compile_quickly target)
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-O0>)
endfunction()

# Flags of every target, and the functions that make targets: one library for each folder of src/.

add_library(veskora_flags INTERFACE)
target_compile_features(veskora_flags INTERFACE cxx_std_20)
target_compile_options(veskora_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  # Results are the same to the bit on every machine: nothing is fused or reordered.
  -ffp-contract=off -fno-fast-math
  # GCC 12 forgets that a Double was narrowed to a Single where it joins two such places to a vector.
  -fno-tree-slp-vectorize
  # Of files compiled together GCC takes the unnamed namespaces for those of headers.
  $<$<AND:$<BOOL:${CMAKE_UNITY_BUILD}>,$<CXX_COMPILER_ID:GNU>>:-Wno-subobject-linkage>
  $<$<BOOL:${VESKORA_WERROR}>:-Werror>
  $<$<BOOL:${VESKORA_SANITIZE}>:-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer>)
target_link_options(veskora_flags INTERFACE
  -Wl,-z,relro,-z,now # what the linker has filled in cannot be written any more
  $<$<BOOL:${VESKORA_SANITIZE}>:-fsanitize=address,undefined>)

# veskora_library(NAME [QT] [LOOPS] SOURCES ... LINKS ...): its own folder is its include path, and that of
# the targets it links; a wrong include does not compile. What stands in its folder internal/ is for
# itself alone. QT: it has forms, or classes with signals. LOOPS: what it computes takes long.
function(veskora_library name)
  cmake_parse_arguments(arg "QT;LOOPS" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name}
    PUBLIC ${CMAKE_CURRENT_SOURCE_DIR} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/internal)
  target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE veskora_flags)
  if(arg_LOOPS AND VESKORA_SANITIZE) # elsewhere the optimiser takes longer than the tests
    target_compile_options(${name} PRIVATE -O2)
  endif()
  set_target_properties(${name} PROPERTIES AUTOMOC ${arg_QT} AUTOUIC ${arg_QT} AUTORCC ${arg_QT})
  if(arg_QT)
    veskora_precompiled_toolkit(${name})
  endif()
endfunction()

# Clang reads the toolkit's headers once for all targets of the sanitizers; GCC's take longer to write
# than they save. veskora_desktop is without: the fuzzer's flags are its own.
function(veskora_precompiled_toolkit name)
  if(NOT VESKORA_SANITIZE OR NOT CMAKE_UNITY_BUILD)
    return()
  elseif(name STREQUAL veskora_hand)
    target_precompile_headers(${name} PRIVATE <QtWidgets> <algorithm> <filesystem> <functional> <map> <sstream> <vector>)
  elseif(TARGET veskora_hand)
    target_precompile_headers(${name} REUSE_FROM veskora_hand)
  endif()
endfunction()

# What every target of the project shares: warnings as errors, exact floating point, sanitizers.

add_library(mirvane_options INTERFACE)
target_compile_options(mirvane_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Werror
  # GCC 12 warns wrongly about text + std::string (GCC bug 105651).
  -Wno-restrict
  # Scores are compared for ties: a fused multiply-add would round differently on some machines.
  -ffp-contract=off)

if(MIRVANE_SANITIZE)
  target_compile_options(mirvane_options INTERFACE
    -fsanitize=${MIRVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    # GCC 12 loses track of std::variant and std::optional between the checks.
    -Wno-maybe-uninitialized)
  target_link_options(mirvane_options INTERFACE -fsanitize=${MIRVANE_SANITIZE})
endif()

if(MIRVANE_COVERAGE)
  target_compile_options(mirvane_options INTERFACE --coverage -O0)
  target_link_options(mirvane_options INTERFACE --coverage)
endif()

# mirvane_library(NAME [SOURCES FILES...] [PUBLIC DEPS...] [PRIVATE DEPS...])
# A static library, or a header-only one when no source is named; headers are included from src/.
function(mirvane_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE mirvane_options ${ARG_PRIVATE})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${ARG_PUBLIC})
  endif()
endfunction()

# mirvane_program(NAME SOURCES FILES... [LINK DEPS...])
function(mirvane_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE mirvane_options ${ARG_LINK})
endfunction()

# mirvane_use_qt(NAME): lets the toolkit's code generators see the target's sources.
function(mirvane_use_qt name)
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  target_compile_definitions(${name} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
endfunction()

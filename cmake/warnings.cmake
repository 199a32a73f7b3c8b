# Settings that every target of ours takes from one interface target.
add_library(vantor_settings INTERFACE)
target_compile_options(vantor_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                                 -Wno-missing-field-initializers)
if(CMAKE_UNITY_BUILD)
  # GCC takes the sources that are compiled together for headers.
  target_compile_options(vantor_settings INTERFACE -Wno-subobject-linkage)
endif()
target_compile_definitions(vantor_settings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS
                                                     QT_NO_FOREACH)
target_include_directories(vantor_settings INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(VANTOR_SANITIZE)
  add_compile_options(-fsanitize=${VANTOR_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${VANTOR_SANITIZE})
endif()

# Coverage for the fuzz targets of everything that they link. Clang 14 cannot place the function
# sanitizer's data beside coroutines ("Cannot represent a difference across sections").
if(VANTOR_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize=function
                      -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/fuzz/ignored.txt)
endif()

# vantor_library(name SOURCES… ) makes one static library a folder.
function(vantor_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC vantor_settings ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  vantor_precompile(${name})
endfunction()

# vantor_test(name SOURCES… LIBRARIES…) makes one test program a folder.
function(vantor_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES;LABELS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} vantor_test_support)
  vantor_precompile(${name} LIKE vantor_precompiled_test)
  if(VANTOR_SANITIZE STREQUAL thread)
    target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/untraced_clone.cpp)
  endif()
  set(properties TIMEOUT 120)
  if(ARG_LABELS)
    list(APPEND properties LABELS "${ARG_LABELS}")
  endif()
  if("window" IN_LIST ARG_LABELS)
    # One at a time: they share the keyboard focus and the saved account.
    list(APPEND properties ENVIRONMENT VANTOR_TEST_WINDOW=1 RESOURCE_LOCK desktop)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES ${properties})
endfunction()

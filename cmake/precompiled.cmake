# Three precompiled headers for the whole tree, each built once: GCC takes one in every target whose
# options agree, whatever other modules of Qt that target names.
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled.cpp CONTENT "")
# ccache needs the header's name in what the preprocessor writes.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  add_compile_options(-fpch-preprocess)
endif()

function(vantor_add_precompiled name)
  cmake_parse_arguments(ARG "" "" "LIBRARIES;HEADERS" ${ARGN})
  add_library(${name} STATIC ${CMAKE_BINARY_DIR}/precompiled.cpp)
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_link_libraries(${name} PRIVATE vantor_settings ${ARG_LIBRARIES})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

vantor_add_precompiled(vantor_precompiled
  LIBRARIES Qt6::Core QCoro6::Coro QCoro6::Core
  HEADERS <QCoroTask> <QByteArray> <QObject> <QString> <QUrl> <algorithm> <chrono> <functional>
          <memory> <optional> <stop_token> <string> <string_view> <vector>)

# For the views and what the compiler of QML writes.
vantor_add_precompiled(vantor_precompiled_quick
  LIBRARIES Qt6::Core QCoro6::Coro QCoro6::Core Qt6::Quick
  HEADERS <QCoroTask> <QByteArray> <QObject> <QString> <QUrl> <QQuickItem> <QtQml/qqml.h>
          <QtQml/qqmlprivate.h> <QtQml/qjsengine.h> <algorithm> <chrono> <functional> <memory>
          <optional> <string> <vector>)

# For the tests, which bring GoogleTest along.
if(BUILD_TESTING)
  vantor_add_precompiled(vantor_precompiled_test
    LIBRARIES Qt6::Core QCoro6::Coro QCoro6::Core GTest::gmock
    HEADERS <QCoroTask> <QByteArray> <QObject> <QString> <QUrl> <algorithm> <chrono> <functional>
            <gmock/gmock.h> <gtest/gtest.h> <memory> <optional> <stop_token> <string> <string_view>
            <vector>)
  # Tests are compiled more often than they are run.
  target_compile_options(vantor_precompiled_test PUBLIC $<$<CONFIG:RelWithDebInfo>:-O1>)
endif()

# vantor_precompile(target [LIKE precompiled])
function(vantor_precompile target)
  cmake_parse_arguments(ARG "" "LIKE" "" ${ARGN})
  if(NOT ARG_LIKE)
    set(ARG_LIKE vantor_precompiled)
  endif()
  target_precompile_headers(${target} REUSE_FROM ${ARG_LIKE})
  # Both agree in these or the header is of no use.
  target_compile_options(${target} PRIVATE $<TARGET_PROPERTY:${ARG_LIKE},INTERFACE_COMPILE_OPTIONS>)
endfunction()

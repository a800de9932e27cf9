# Settings that every target of this project shares.
add_library(ledra_options INTERFACE)
target_compile_options(ledra_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor)
target_compile_definitions(ledra_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(LEDRA_FUZZ)
  # clang counts changes of sign among the conversions, which GCC does not in C++.
  target_compile_options(ledra_options INTERFACE -Wno-sign-conversion)
  set(LEDRA_SANITIZERS fuzzer-no-link,address,undefined)
else()
  if(LEDRA_WARNINGS_AS_ERRORS)
    target_compile_options(ledra_options INTERFACE -Werror)
  endif()
  if(LEDRA_SANITIZE)
    set(LEDRA_SANITIZERS address,undefined)
  endif()
endif()
if(LEDRA_SANITIZERS)
  target_compile_options(ledra_options INTERFACE
    -fsanitize=${LEDRA_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(ledra_options INTERFACE -fsanitize=${LEDRA_SANITIZERS})
endif()

# ledra_layer(NAME LAYERS a b LIBRARIES x y [WITHOUT folder])
# One static library for one folder of src/ and the folders inside it but those named. It sees the headers of the layers that it
# names, and only those are linked; the include check of the test suite keeps the
# headers to the same table.
function(ledra_layer name)
  cmake_parse_arguments(ARG "" "" "LAYERS;LIBRARIES;WITHOUT" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  foreach(folder ${ARG_WITHOUT})
    list(FILTER sources EXCLUDE REGEX "^${CMAKE_CURRENT_SOURCE_DIR}/${folder}/")
  endforeach()
  add_library(ledra_${name} STATIC ${sources})
  target_include_directories(ledra_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  # Without this a file that is added later is not looked at for Q_OBJECT.
  set_target_properties(ledra_${name} PROPERTIES AUTOGEN_TARGET_DEPENDS "${sources}")
  list(TRANSFORM ARG_LAYERS PREPEND ledra_)
  target_link_libraries(ledra_${name} PUBLIC Qt6::Core ${ARG_LAYERS} ${ARG_LIBRARIES} PRIVATE ledra_options)
  target_precompile_headers(ledra_${name} PRIVATE
    <QByteArray> <QString> <QStringView> <QList>
    <algorithm> <array> <cstdint> <expected> <functional> <memory> <optional> <string> <string_view> <variant>
    <vector>)
endfunction()

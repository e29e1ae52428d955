# Fails when a C++ source of the project differs from what clang-format makes of it.
file(GLOB_RECURSE files ${ROOT}/src/*.h ${ROOT}/src/*.cpp ${ROOT}/apps/*.cpp
     ${ROOT}/tests/*.h ${ROOT}/tests/*.cpp ${ROOT}/bench/*.cpp ${ROOT}/fuzz/*.cpp)
execute_process(COMMAND ${CLANG_FORMAT} --dry-run -Werror --style=file ${files}
                RESULT_VARIABLE rc ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "clang-format finds unformatted files:\n${err}")
endif()

# cmake -DPROGRAM=... -DEXPECTED=... -P compare.cmake: fails unless the program prints exactly the text of the file.
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed RESULT_VARIABLE code)
file(READ "${EXPECTED}" expected)
if(NOT code EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} ended with ${code}")
endif()
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "expected:\n${expected}\nprinted:\n${printed}")
endif()

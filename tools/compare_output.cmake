# Fails unless PROGRAM with ARGUMENTS prints exactly the content of FILE.
execute_process(COMMAND ${PROGRAM} ${ARGUMENTS} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ ${FILE} kept)
if(NOT printed STREQUAL kept)
  message(FATAL_ERROR "${FILE} is not what ${PROGRAM} prints; build the target that updates it")
endif()

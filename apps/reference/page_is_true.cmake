# Compares the page in docs with what the program prints today.
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE made COMMAND_ERROR_IS_FATAL ANY)
file(READ ${PAGE} kept)
if(NOT made STREQUAL kept)
    message(FATAL_ERROR "docs/reference.md is out of date; make it anew:\n  krvlist-reference > docs/reference.md")
endif()

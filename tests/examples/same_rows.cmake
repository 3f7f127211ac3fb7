# Runs two programs that print a list and compares what they print: captions, then 25 rows.
#
#   cmake -DFORM=… -DFILE=… -P same_rows.cmake

execute_process(COMMAND ${FORM} OUTPUT_VARIABLE of_form COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${FILE} OUTPUT_VARIABLE of_file COMMAND_ERROR_IS_FATAL ANY)
message("${of_form}")

if(NOT of_form STREQUAL of_file)
    message(FATAL_ERROR "The settings' file gives other rows:\n${of_file}")
endif()
string(REGEX MATCHALL "\n" lines "${of_form}")
list(LENGTH lines count)
if(NOT count EQUAL 26)
    message(FATAL_ERROR "Expected the captions and 25 rows")
endif()
string(REGEX REPLACE "\n.*" "" captions "${of_form}")
if(NOT captions STREQUAL "N. | Ordine | Data | Cliente | Articolo | Quantità | Totale")
    message(FATAL_ERROR "Captions: ${captions}")
endif()
string(REGEX MATCH " \\| [0-9][0-9]/[0-9][0-9]/[0-9][0-9][0-9][0-9] \\| [^|]+ \\| [^|]+ \\| [0-9]+ \\| [0-9.]+,[0-9][0-9]\n" row "${of_form}")
if(row STREQUAL "")
    message(FATAL_ERROR "No row has a date and a sum in the region's form")
endif()

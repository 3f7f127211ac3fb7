# Links the whole archive of the core into a shared library with nothing but the compiler's own
# libraries, and looks at what that library asks for.
#
#   cmake -DCOMPILER=… -DFLAGS=… -DREADELF=… -DARCHIVE=… -DLIBRARIES=… -DOUTPUT=… -P core_links_alone.cmake

if(LIBRARIES)
    message(FATAL_ERROR "The core is to stand on the standard library alone, but is linked with: ${LIBRARIES}")
endif()

separate_arguments(flags UNIX_COMMAND "${FLAGS}")
execute_process(
    COMMAND ${COMPILER} ${flags} -shared -o ${OUTPUT}
        -Wl,--no-undefined -Wl,--whole-archive ${ARCHIVE} -Wl,--no-whole-archive
    RESULT_VARIABLE result
    ERROR_VARIABLE errors)
if(result)
    message(FATAL_ERROR "The core does not link without further libraries:\n${errors}")
endif()

execute_process(COMMAND ${READELF} --dynamic --wide ${OUTPUT} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*\\[[^]]+\\]" entries "${dynamic}")
list(TRANSFORM entries REPLACE ".*\\[([^]]+)\\]" "\\1")
if(NOT entries MATCHES "libstdc\\+\\+")
    message(FATAL_ERROR "No NEEDED entry for the standard library was read:\n${dynamic}")
endif()

set(allowed "^(libstdc\\+\\+|libm|libgcc_s|libc|ld-linux[-a-z0-9_]*|libasan|libubsan)\\.so\\.[0-9]+$")
set(others ${entries})
list(FILTER others EXCLUDE REGEX "${allowed}")
if(others)
    message(FATAL_ERROR "The core needs more than the standard library: ${others}")
endif()
message("The core needs ${entries}")

# Writes the list from which the linker exports the inline operations of the public classes, which
# GCC leaves out of a DLL: those of OBJECT that belong to a class marked in the HEADERS.
#   cmake -DNM=... -DOBJECT=... -DHEADERS=... -DOUTPUT=... -P inline_exports.cmake
set(classes "")
foreach(header IN LISTS HEADERS)
    file(STRINGS ${header} lines REGEX "^(class|struct) ZELSTANDARD_API ")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^[a-z]+ ZELSTANDARD_API ([A-Za-z]+).*" "\\1" class "${line}")
        string(LENGTH ${class} length)
        string(APPEND classes "|${length}${class}")
    endforeach()
endforeach()
string(SUBSTRING "${classes}" 1 -1 classes)

execute_process(COMMAND ${NM} --defined-only --extern-only --format=just-symbols ${OBJECT}
    OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "_ZNK?(8Standard)?(${classes})[^\n\r]*" symbols "${symbols}")
list(SORT symbols)
list(JOIN symbols "\n    " symbols)
file(WRITE ${OUTPUT} "EXPORTS\n    ${symbols}\n")

# Finds the names that a header of hostapi/host/ declares, each as "kind name": operation, type,
# code (an enumerator or a macro), and field ("record.field").

# append_names(KIND PATTERN TEXT): the first group of each match goes to the caller's `names`.
function(append_names kind pattern text)
    string(REGEX MATCHALL "${pattern}" found "${text}")
    foreach(match IN LISTS found)
        string(REGEX REPLACE "${pattern}" "\\1" name "${match}")
        list(APPEND names "${kind} ${name}")
    endforeach()
    set(names "${names}" PARENT_SCOPE)
endfunction()

function(names_of file variable)
    file(READ "${file}" text)
    string(REGEX REPLACE "//[^\n]*" "" text "${text}")
    # Neither may end an element of a list.
    string(REPLACE ";" "@" text "${text}")
    string(REGEX REPLACE "\\[[^]\n]*\\]" "" text "${text}")
    # Of a record within a record only its own name counts.
    string(REGEX REPLACE "\n +(union|struct) *{[^{}]*} *([A-Za-z_0-9]+)" "\n int \\2" text
           "${text}")
    set(names)
    append_names(operation "HOST_API[^(@]*[ *]([A-Za-z_0-9]+)\\(" "${text}")
    append_names(code "#define +([A-Z][A-Z_0-9]*) +[^\n]+" "${text}")

    string(REGEX MATCHALL "HOST_API" all "${text}")
    list(LENGTH all expected)
    set(operations ${names})
    list(FILTER operations INCLUDE REGEX "^operation ")
    list(LENGTH operations count)
    if(NOT count EQUAL expected)
        message(FATAL_ERROR "kit_check: ${file} declares ${expected} operations, found ${count}")
    endif()

    string(REGEX MATCHALL "typedef enum[^{@]*{[^}]*} *[A-Za-z_0-9]+" enums "${text}")
    foreach(enum IN LISTS enums)
        append_names(code "([A-Z][A-Z_0-9]*) *=" "${enum}")
        string(REGEX REPLACE ".*} *([A-Za-z_0-9]+)$" "\\1" name "${enum}")
        list(APPEND names "type ${name}")
    endforeach()

    # Codes of which only the type is known.
    append_names(type "enum ([A-Za-z_0-9]+) : int *{}" "${text}")

    string(REGEX MATCHALL "typedef (struct|union)[^{@]*{[^}]*} *[A-Za-z_0-9]+" records "${text}")
    foreach(record IN LISTS records)
        string(REGEX REPLACE ".*} *([A-Za-z_0-9]+)$" "\\1" name "${record}")
        list(APPEND names "type ${name}")
        string(REGEX REPLACE ".*{([^}]*)}.*" "\\1" body "${record}")
        string(REGEX MATCHALL "[A-Za-z_0-9]+ *[,@]" fields "${body}")
        foreach(field IN LISTS fields)
            string(REGEX REPLACE "[ ,@]" "" field "${field}")
            list(APPEND names "field ${name}.${field}")
        endforeach()
    endforeach()

    string(REGEX REPLACE "{[^}]*}" "" flat "${text}")
    append_names(type "typedef [^@(){}]*[ *]([A-Za-z_0-9]+) *@" "${flat}")
    append_names(type "typedef [^@(){}]*\\( *\\*([A-Za-z_0-9]+)\\)" "${flat}")
    list(REMOVE_DUPLICATES names)
    set(${variable} "${names}" PARENT_SCOPE)
endfunction()

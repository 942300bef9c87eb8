# Compiles a use of each name of the C library's wide functions behind windows.h and
# makes sure that the compiler refuses every one of them, and nothing else.
#
# Arguments: COMPILER, FLAGS (a list), DIRECTORY (to write to)
set(names
    wcslen wcsnlen wcscpy wcsncpy wcscat wcsncat wcscmp wcsncmp wcschr wcsrchr wcsstr
    wcstok wcstol wcstoul wcstoll wcstoull wcsdup wcscasecmp wcsncasecmp
    wmemcpy wmemmove wmemset wmemcmp wmemchr swprintf vswprintf wprintf fwprintf swscanf
    mbstowcs wcstombs mbrtowc wcrtomb mbsrtowcs wcsrtombs
    wstring wstring_view toStdWString fromStdWString)

function(compile text result errors)
    file(WRITE ${DIRECTORY}/wide_c_library.cpp "#include <windows.h>\n${text}")
    execute_process(
        COMMAND ${COMPILER} ${FLAGS} -fsyntax-only ${DIRECTORY}/wide_c_library.cpp
        RESULT_VARIABLE code ERROR_VARIABLE messages)
    set(${result} "${code}" PARENT_SCOPE)
    set(${errors} "${messages}" PARENT_SCOPE)
endfunction()

compile("int length(const QString &text, wchar_t *buffer) { return text.toWCharArray(buffer); }\n" code messages)
if(NOT code EQUAL 0)
    message(FATAL_ERROR "what is allowed does not compile:\n${messages}")
endif()

set(uses "")
foreach(name IN LISTS names)
    string(APPEND uses "void use_${name}() { ${name}; }\n")
endforeach()
compile("${uses}" code messages)
if(code EQUAL 0)
    message(FATAL_ERROR "the wide functions of the C library compile")
endif()
foreach(name IN LISTS names)
    if(NOT messages MATCHES "attempt to use poisoned \"${name}\"")
        message(SEND_ERROR "${name} is not poisoned")
    endif()
endforeach()

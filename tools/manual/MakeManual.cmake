# Makes FOLDER/manual.ja.html with its pictures of SOURCE/manual.ja.md, and FOLDER/at-NAME.html for each
# anchor, which leads there.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
execute_process(COMMAND ${CMARK} --unsafe -e table ${SOURCE}/manual.ja.md
                OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)
file(READ ${CMAKE_CURRENT_LIST_DIR}/manual.css style)

set(start "<!DOCTYPE html>\n<html lang=\"ja\">\n<head>\n<meta charset=\"utf-8\">\n")
set(contents)
string(REGEX MATCHALL "<a id=\"[a-z-]+\"></a></p>\n<h[23]>[^\n]*</h" headings "${body}")
foreach(heading IN LISTS headings)
    string(REGEX MATCH "id=\"([a-z-]+)\"" unused "${heading}")
    set(name ${CMAKE_MATCH_1})
    string(REGEX MATCH "<h[23]>([^\n]*)</h" unused "${heading}")
    string(APPEND contents "<li><a href=\"#${name}\">${CMAKE_MATCH_1}</a></li>\n")
    file(WRITE ${FOLDER}/at-${name}.html
        "${start}<title>Tovi</title>\n<meta http-equiv=\"refresh\" content=\"0; url=manual.ja.html#${name}\">\n"
        "</head>\n<body><a href=\"manual.ja.html#${name}\">${CMAKE_MATCH_1}</a></body>\n</html>\n")
endforeach()

string(FIND "${body}" "</h1>\n" end_of_title)
math(EXPR end_of_title "${end_of_title} + 6")
string(SUBSTRING "${body}" 0 ${end_of_title} title)
string(SUBSTRING "${body}" ${end_of_title} -1 rest)
file(WRITE ${FOLDER}/manual.ja.html
    "${start}<title>Tovi の使い方</title>\n<meta name=\"viewport\" content=\"width=device-width\">\n"
    "<style>\n${style}</style>\n</head>\n<body>\n${title}<nav><ul>\n${contents}</ul></nav>\n${rest}"
    "</body>\n</html>\n")

string(REGEX MATCHALL "src=\"[^\"]+" pictures "${body}")
foreach(picture IN LISTS pictures)
    string(REPLACE "src=\"" "" picture ${picture})
    cmake_path(GET picture PARENT_PATH place)
    file(COPY ${SOURCE}/${picture} DESTINATION ${FOLDER}/${place})
endforeach()

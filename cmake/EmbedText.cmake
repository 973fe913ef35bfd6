# Writes a C++ source that holds a text file as a constant, so that the library needs no data files
# where it runs. Run as a script:
#   cmake -D INPUT=en.strings -D OUTPUT=en.strings.cpp -D SYMBOL=kEnglishStrings -P EmbedText.cmake
# The source defines `extern const std::string_view corvane::SYMBOL`.

set(delimiter "EMBEDDED")
file(READ "${INPUT}" text)
string(FIND "${text}" ")${delimiter}\"" clash)
if(NOT clash EQUAL -1)
    message(FATAL_ERROR "${INPUT} holds the delimiter of its own literal")
endif()

file(WRITE "${OUTPUT}"
"#include <string_view>

namespace corvane {

extern const std::string_view ${SYMBOL};
const std::string_view ${SYMBOL} = R\"${delimiter}(${text})${delimiter}\";

}  // namespace corvane
")

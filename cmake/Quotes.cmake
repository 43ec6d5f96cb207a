# Fails if a page does not quote these files, programs and output, verbatim.
#   cmake -D PAGE=<file> -D "QUOTED=<file>;<file>" -P Quotes.cmake
file(READ ${PAGE} page)
foreach(file IN LISTS QUOTED)
  file(READ ${file} text)
  string(REGEX REPLACE ".*\\.m?" "" language ${file})
  string(FIND "${page}" "```${language}\n${text}```" program)
  string(FIND "${page}" "```\n${text}```" output)
  if(program EQUAL -1 AND output EQUAL -1)
    message(FATAL_ERROR "${PAGE} does not contain the text of ${file}")
  endif()
endforeach()

# cmake -DREADME=<file> -DPROGRAM=<file> -P listing.cmake: fails unless a C++ listing of the page
# is the program, to the letter.
file(READ ${README} page)
file(READ ${PROGRAM} program)
string(FIND "${page}" "```cpp\n${program}```" place)
if(place EQUAL -1)
  message(FATAL_ERROR "${README} does not show ${PROGRAM} as it is")
endif()

# cmake -DTEMPLATE=… -DLICENSE=… -DOUTPUT=… -P copyright.cmake
# Appends the text of the fonts' licence, which has to go wherever they go, in the form of a field of Debian's copyright
# file: each line indented, empty lines as a dot. It begins at its title; what stands before is the fonts' own.
file(READ ${LICENSE} text)
string(FIND "${text}" "SIL OPEN FONT LICENSE Version 1.1" start)
if(start EQUAL -1)
  message(FATAL_ERROR "${LICENSE} does not hold the SIL Open Font License 1.1")
endif()
string(SUBSTRING "${text}" ${start} -1 text)
string(REPLACE "\r" "" text "${text}")
string(STRIP "${text}" text)
string(REGEX REPLACE "\n[ \t]*\n" "\n.\n" text "${text}")
string(REGEX REPLACE "\n[ \t]*\n" "\n.\n" text "${text}")
string(REPLACE "\n" "\n " text "${text}")
file(READ ${TEMPLATE} head)
file(WRITE ${OUTPUT} "${head} ${text}\n")

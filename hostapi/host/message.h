// The host's message files and message line.
#pragma once

#include "hostapi/host/types.h"

// Receives the text of `key` from a message file of the plug-in's text folder, with the further
// arguments put in for %0w (wide text), %0s, %0d, %0f. The buffer holds a ProLine.
// PRO_TK_MSG_NOT_FOUND: no such key; the buffer is left as it was.
// Assumed (length, 75 %): the buffer holds a ProLine (81 characters)
HOST_API ProError ProMessageToBuffer(WideChar* buffer, WideChar* messageFile, char* key, ...);

// Shows the text of `key` on the message line, arguments as above.
HOST_API ProError ProMessageDisplay(WideChar* messageFile, char* key, ...);

// Waits for a line typed at the message line. Receives at most `size` characters of it and a
// terminator, so the buffer holds one more than `size`. An empty line takes the default.
// PRO_TK_MSG_USER_QUIT (-31): the user left the prompt.
// Assumed (length, 50 %): the terminator comes on top of `size`. If it is counted in, an answer has
//   one character less
HOST_API ProError ProMessageStringRead(int size, WideChar* text);

// Waits for a number typed at the message line; what is none, or lies outside the range (null: any
// number), is asked for again. PRO_TK_MSG_USER_QUIT: the user left the prompt.
// PRO_TK_GENERAL_ERROR: an empty line, and the prompt has no default.
HOST_API ProError ProMessageDoubleRead(double range[2], double* value);

// Widen and narrow with the system code page. Receive into the first argument and return it. The
// caller provides room for the whole text and its terminator.
// Assumed (narrow, 35 %): narrow texts are in the system's code page, which protk.dat asks for
//   (unicode_encoding FALSE). If they are UTF-8 all the same, a path with Chinese letters reaches
//   no Windows program
HOST_API WideChar* ProStringToWstring(WideChar* wide, char* narrow);
HOST_API char* ProWstringToString(char* narrow, WideChar* wide);

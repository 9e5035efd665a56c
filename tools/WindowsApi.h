// Windows only: the system's header without its macros that rename this program's own functions.
// Include this instead of <windows.h>.
#pragma once

#include <windows.h>

#undef CopyFile
#undef CreateFile
#undef DeleteFile
#undef ReplaceFile

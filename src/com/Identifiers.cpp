// The identifiers that the generated header declares are defined here. The system's own headers
// come first, so that theirs are not defined once more.
#include <windows.h>

#include <ole2.h>

#include <initguid.h>

#include "com/NorvoPlayList.h"

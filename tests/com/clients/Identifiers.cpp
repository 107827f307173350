// The identifiers that the generated header declares, as every client has to define them once. The
// system's own headers come first, so that theirs are not defined once more.
#include <windows.h>

#include <ole2.h>

#include <initguid.h>

#include "com/NorvoPlayList.h"

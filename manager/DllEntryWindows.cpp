// The load and unload entry of zelt.dll.
#include <windows.h>

// Loading and unloading do nothing beyond the runtime's own start-up: every
// reason reports success.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) { return TRUE; }

// RecordingPLXR.h: a logging sink of the tests' own that keeps every call to
// PLXR_PrintMessage for the test to check. On Windows it is the PLXR.dll that
// zelt.dll imports from, built beside the test programs; on Linux it is linked
// into the test program, which thereby defines the sink that the library
// looks up at run time.
#ifndef ZELT_TESTS_RECORDINGPLXR_H
#define ZELT_TESTS_RECORDINGPLXR_H

#if defined(_WIN32) && defined(ZELT_BUILDING_RECORDING_PLXR)
#define RECORDING_PLXR_API __declspec(dllexport)
#elif defined(_WIN32)
#define RECORDING_PLXR_API __declspec(dllimport)
#else
#define RECORDING_PLXR_API
#endif

extern "C" {

// One recorded call; the texts stay valid until the next ClearRecordedCalls.
struct RecordedCall {
    const wchar_t* file;
    const wchar_t* function;
    int line;
    int level;
    const wchar_t* message;
};

// The sink as the agent's logging library offers it.
RECORDING_PLXR_API void PLXR_PrintMessage(const wchar_t* file, const wchar_t* function, int line,
                                          int level, const wchar_t* message);

RECORDING_PLXR_API int RecordedCallCount();
// Call index, 0 for the first call since the last clear.
RECORDING_PLXR_API RecordedCall RecordedCallAt(int index);
RECORDING_PLXR_API void ClearRecordedCalls();
}

#endif  // ZELT_TESTS_RECORDINGPLXR_H

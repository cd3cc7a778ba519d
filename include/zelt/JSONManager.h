// JSONManager.h: the JSON document manager and the library's three exports.
//
// A manager owns one parsed JSON document and offers operations on named
// elements (objects and arrays) and attributes (integer and string members).
// Names and values cross the interface as wide strings; the document is UTF-8.
// Create a manager with zeltCreateJSONManager and destroy it with
// zeltDestroyJSONManager (or its virtual destructor).
#ifndef ZELT_JSONMANAGER_H
#define ZELT_JSONMANAGER_H

#include <zelt/Export.h>
#include <zelt/Types.h>

// The virtual slot order of this interface is part of the binary contract.
class IJSONManager {
public:
    virtual ~IJSONManager() {}

    // Document lifecycle and files.
    virtual void ClearDocument() = 0;
    virtual int CreateNewDocument() = 0;
    virtual int ImportFromJSONFile(const wchar_t* path) = 0;
    virtual int ImportFromJSONString(const char* utf8Text, int length) = 0;
    virtual int SaveToJSONFile(const wchar_t* path) = 0;
    virtual JSONNode* GetRootElement() = 0;

    // Elements and attributes.
    virtual JSONNode* AddElement(JSONNode* parent, const wchar_t* name, int type) = 0;
    virtual JSONNode* GetElement(JSONNode* parent, const wchar_t* name) = 0;
    virtual JSONNode* GetArrayElement(JSONNode* array, const wchar_t* name, int index) = 0;
    virtual int SetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD value) = 0;
    virtual int SetStringAttribute(JSONNode* node, const wchar_t* name, const wchar_t* value) = 0;
    virtual int GetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD* value) = 0;
    virtual int GetStringAttribute(JSONNode* node, const wchar_t* name, wchar_t* buffer,
                                   int* length) = 0;
    virtual int GetArrayStringAttribute(JSONNode* array, const wchar_t* name, int index,
                                        wchar_t* buffer, int* length) = 0;
    virtual int GetArrayCount(JSONNode* array, const wchar_t* name) = 0;
    virtual int RemoveElement(JSONNode* parent, const wchar_t* name) = 0;
};

// Creates a manager; with a text (not null, length not 0) it imports it right
// away. A text that does not import still gives a manager, with no document.
ZELT_API IJSONManager* zeltCreateJSONManager(char* utf8Text, int length);

// Clears the debug dump callback (always, also for a null manager), then
// destroys the manager.
ZELT_API void zeltDestroyJSONManager(IJSONManager* manager);

// Installs the process-wide debug dump callback; null turns reporting off.
ZELT_API void SetZeltDebugDumpCallBack(DebugDumpCallback callback);

#endif  // ZELT_JSONMANAGER_H

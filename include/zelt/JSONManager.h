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

/// AddElement type code: adds a new empty object under the parent (appended
/// to an array parent, replacing a member of the same name in an object).
inline constexpr int ZELT_ADD_OBJECT = 0;
/// AddElement type code: adds a new empty array as a member of the parent,
/// which must be an object.
inline constexpr int ZELT_ADD_ARRAY = 1;
/// AddElement type code: the same as ZELT_ADD_ARRAY.
inline constexpr int ZELT_ADD_ARRAY_ALTERNATIVE = 2;
/// AddElement type code: creates nothing and gives back the parent itself;
/// the elements pass it before setting a string attribute on the parent.
inline constexpr int ZELT_ADD_PARENT_FOR_STRING = 3;
/// AddElement type code: creates nothing and gives back the parent itself;
/// the elements pass it before setting a DWORD attribute on the parent.
inline constexpr int ZELT_ADD_PARENT_FOR_DWORD = 4;

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
    // type is one of the ZELT_ADD_ codes above; any other is refused (null).
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

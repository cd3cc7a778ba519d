/// \file
/// JSONManager.h: the JSON document manager and the library's three exports.
///
/// A manager owns one parsed JSON document and offers operations on named
/// elements (objects and arrays) and attributes (integer and string members).
/// Names and values cross the interface as wide strings; the document is UTF-8.
/// Create a manager with zeltCreateJSONManager and destroy it with
/// zeltDestroyJSONManager (or its virtual destructor).
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

/// The JSON document manager: owns one document and reads and changes it by
/// named members. The virtual slot order of this interface is part of the
/// binary contract. One manager is used by one thread at a time.
class IJSONManager {
public:
    /// Frees the document; every node handle of it becomes invalid.
    virtual ~IJSONManager() {}

    /// \name Document lifecycle and files
    ///@{

    /// Drops the document; every node handle of it becomes invalid.
    virtual void ClearDocument() = 0;
    /// Replaces the document by an empty object: 1, or -101 when it cannot be
    /// allocated.
    virtual int CreateNewDocument() = 0;
    /// Replaces the document by the file's text: 1; -102 when the file cannot
    /// be opened exclusively, is empty or is not read whole (the old document
    /// stays); -101 when the text does not parse (no document is left). The
    /// read buffer (the file's size + 1 bytes) is kept for the life of the
    /// process.
    virtual int ImportFromJSONFile(const wchar_t* path) = 0;
    /// Replaces the document by the text: 1; -102 when utf8Text is null,
    /// length is 0 or not the text's exact byte length up to its terminating
    /// zero (the old document stays), or when the text does not parse (no
    /// document is left).
    virtual int ImportFromJSONString(const char* utf8Text, int length) = 0;
    /// Writes the document to the file in the library's one-line layout: 1;
    /// -102 when the file cannot be opened, -105 when there is no document
    /// (the file is left empty), -101 on a short write.
    virtual int SaveToJSONFile(const wchar_t* path) = 0;
    /// The document's root node, borrowed; null when there is no document.
    virtual JSONNode* GetRootElement() = 0;
    ///@}

    /// \name Elements and attributes
    /// Names and values are wide strings, stored as UTF-8. A null parent or
    /// node means the root where the operation accepts one. Setting a member
    /// that exists replaces it and moves it to the end of its object.
    ///@{

    /// Adds an object (type ZELT_ADD_OBJECT) or an array (ZELT_ADD_ARRAY or
    /// ZELT_ADD_ARRAY_ALTERNATIVE) as member name of parent (an object added to
    /// an array is appended), or gives parent back (ZELT_ADD_PARENT_FOR_STRING
    /// or ZELT_ADD_PARENT_FOR_DWORD). The new node, borrowed; null for a null
    /// name, a name that does not convert or any other type.
    virtual JSONNode* AddElement(JSONNode* parent, const wchar_t* name, int type) = 0;
    /// The value of member name of parent, borrowed; null when it is missing,
    /// is JSON null or parent is not an object.
    virtual JSONNode* GetElement(JSONNode* parent, const wchar_t* name) = 0;
    /// The item at index of array, borrowed; null when index is past the end
    /// or array is null or not an array. name is not used.
    virtual JSONNode* GetArrayElement(JSONNode* array, const wchar_t* name, int index) = 0;
    /// Sets member name of node (or appends to an array node) to value: 1;
    /// -102 for a null node or one of another kind, -101 when name does not
    /// convert. Values from 2147483648 up are written as negative numbers
    /// and read back unchanged.
    virtual int SetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD value) = 0;
    /// Sets member name of node (or appends to an array node) to the text
    /// value: 1; -102 for a null node or value or a node of another kind,
    /// -101 when name or value does not convert.
    virtual int SetStringAttribute(JSONNode* node, const wchar_t* name, const wchar_t* value) = 0;
    /// Reads member name of node as an integer into *value: 1, 2 when it is
    /// missing, -102 for a null name or value.
    virtual int GetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD* value) = 0;
    /// Copies the text of member name of node into buffer: 1, 2 when it is
    /// missing, -102 for a null name, -103 when *length (in wide characters)
    /// is too small. With 1 and -103, *length is set to the text's length + 2.
    virtual int GetStringAttribute(JSONNode* node, const wchar_t* name, wchar_t* buffer,
                                   int* length) = 0;
    /// Copies the text of the item at index of array into buffer, as
    /// GetStringAttribute does; 2 when there is no such item.
    virtual int GetArrayStringAttribute(JSONNode* array, const wchar_t* name, int index,
                                        wchar_t* buffer, int* length) = 0;
    /// The number of items of array; 2 when it is not an array, -101 when it
    /// is null. Callers read nothing when the count is below 1.
    virtual int GetArrayCount(JSONNode* array, const wchar_t* name) = 0;
    /// Removes member name of parent: 1, 2 when it is missing, -102 for a
    /// null parent or name.
    virtual int RemoveElement(JSONNode* parent, const wchar_t* name) = 0;
    ///@}
};

/// Creates a manager; with a text (not null, length not 0) it imports it right
/// away. A text that does not import still gives a manager, with no document.
ZELT_API IJSONManager* zeltCreateJSONManager(char* utf8Text, int length);

/// Clears the debug dump callback (always, also for a null manager), then
/// destroys the manager.
ZELT_API void zeltDestroyJSONManager(IJSONManager* manager);

/// Installs the process-wide debug dump callback; null turns reporting off.
ZELT_API void SetZeltDebugDumpCallBack(DebugDumpCallback callback);

#endif  // ZELT_JSONMANAGER_H

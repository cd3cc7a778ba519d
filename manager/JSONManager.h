// JSONManager.h: CJSONManager, the one implementation of IJSONManager. It
// owns one json-c document and makes up, around json-c, for the behaviour the
// document format keeps: 32-bit integers, member replacement that moves the
// member to the end, and the library's own one-line text.
#ifndef ZELT_MANAGER_JSONMANAGER_H
#define ZELT_MANAGER_JSONMANAGER_H

#include <zelt/JSONManager.h>

#include <string>

struct json_object;

class CJSONManager final : public IJSONManager {
public:
    CJSONManager() = default;
    ~CJSONManager() override;
    CJSONManager(const CJSONManager&) = delete;
    CJSONManager& operator=(const CJSONManager&) = delete;

    void ClearDocument() override;
    int CreateNewDocument() override;
    int ImportFromJSONFile(const wchar_t* path) override;
    int ImportFromJSONString(const char* utf8Text, int length) override;
    int SaveToJSONFile(const wchar_t* path) override;
    JSONNode* GetRootElement() override;

    JSONNode* AddElement(JSONNode* parent, const wchar_t* name, int type) override;
    JSONNode* GetElement(JSONNode* parent, const wchar_t* name) override;
    JSONNode* GetArrayElement(JSONNode* array, const wchar_t* name, int index) override;
    int SetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD value) override;
    int SetStringAttribute(JSONNode* node, const wchar_t* name, const wchar_t* value) override;
    int GetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD* value) override;
    int GetStringAttribute(JSONNode* node, const wchar_t* name, wchar_t* buffer,
                           int* length) override;
    int GetArrayStringAttribute(JSONNode* array, const wchar_t* name, int index, wchar_t* buffer,
                                int* length) override;
    int GetArrayCount(JSONNode* array, const wchar_t* name) override;
    int RemoveElement(JSONNode* parent, const wchar_t* name) override;

private:
    // Adds value as member key of object, replacing a member of that name:
    // the old member is removed (its subtree freed) and the new one goes last.
    static bool ReplaceMember(json_object* object, const char* key, json_object* value);
    // Sets member key of an object, or appends to an array; other kinds: -102.
    int StoreValue(json_object* node, const char* key, json_object* value);
    // The string node itself, or the member name of node; null when absent.
    json_object* FindAttribute(json_object* node, const wchar_t* name);
    // The caller-buffer protocol shared by the two string reads.
    int DeliverText(json_object* node, wchar_t* buffer, int* length);

    json_object* root_ = nullptr;
};

#endif  // ZELT_MANAGER_JSONMANAGER_H

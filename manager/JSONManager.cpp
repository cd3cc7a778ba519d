#include "manager/JSONManager.h"

#include "manager/FileProbe.h"
#include "manager/FileStream.h"
#include "manager/JSONNumbers.h"
#include "manager/JSONWriter.h"
#include "manager/LogSink.h"
#include "manager/TextConversion.h"

#include <json-c/json.h>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>
#include <new>

namespace {

// Buffer sizes, in bytes with the terminator, of the names that AddElement,
// GetElement and RemoveElement convert.
constexpr std::size_t kAddedNameBytes = 260;
constexpr std::size_t kLookedUpNameBytes = 1024;

json_object* AsJSON(JSONNode* node) { return reinterpret_cast<json_object*>(node); }
JSONNode* AsNode(json_object* object) { return reinterpret_cast<JSONNode*>(object); }

bool IsKind(json_object* node, json_type kind) { return json_object_get_type(node) == kind; }
bool IsContainer(json_object* node) {
    return IsKind(node, json_type_object) || IsKind(node, json_type_array);
}

template <std::size_t Capacity>
bool ConvertName(const wchar_t* name, char (&buffer)[Capacity]) {
    return ConvertWideToUtf8(name, buffer, Capacity) >= 1;
}

// Whether ConvertName would succeed. No unit takes more than four bytes, so
// a short name needs no measuring.
template <std::size_t Capacity>
bool NameFits(const wchar_t* name) {
    if (std::wcslen(name) < Capacity / 4) return true;
    const std::size_t needed = ConvertWideToUtf8(name, nullptr, 0);
    return needed != 0 && needed <= Capacity;
}

// An object made under a parent that can hold no member: it is handed to the
// caller and never freed by the manager. Callers rely on getting a node back.
// Kept out of line, and its call not made a tail call (the volatile read
// comes after it), so that leak checkers can name this one site.
[[gnu::noinline]] json_object* CreateUnattachedObject() {
    json_object* volatile object = json_object_new_object();
    return object;
}

// The read buffer of a file import, zeroed. It is intentionally not freed
// after the parse: each import keeps size + 1 bytes, as the library always
// has. calloc takes fresh pages, already zero, without writing them again.
[[gnu::noinline]] char* AllocateImportBuffer(std::uint32_t size) {
    // Not a tail call, so that this frame names the allocation in leak reports.
    char* volatile buffer = static_cast<char*>(std::calloc(static_cast<std::size_t>(size) + 1, 1));
    return buffer;
}

int SaturatedInt(std::size_t value) {
    return value > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(value);
}

// The UTF-8 form of a wide text: in a fixed buffer when it fits, as names and
// most values do, else in a string of its own.
class Utf8Text {
public:
    Utf8Text() = default;
    Utf8Text(const Utf8Text&) = delete;
    Utf8Text& operator=(const Utf8Text&) = delete;

    // False when text is null or does not convert.
    bool Convert(const wchar_t* text) {
        if (text == nullptr) return false;
        const std::size_t written = ConvertWideToUtf8(text, fixed_, sizeof fixed_);
        if (written != 0) {
            data_ = fixed_;
            size_ = written - 1;
            return true;
        }
        if (!ConvertWideToUtf8(text, long_)) return false;
        data_ = long_.c_str();
        size_ = long_.size();
        return true;
    }
    const char* Data() const { return data_; }
    std::size_t Size() const { return size_; }

private:
    char fixed_[512];
    std::string long_;
    const char* data_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace

CJSONManager::~CJSONManager() { CJSONManager::ClearDocument(); }

void CJSONManager::ClearDocument() {
    if (root_ != nullptr) {
        json_object_put(root_);
        root_ = nullptr;
    }
}

int CJSONManager::CreateNewDocument() {
    ClearDocument();
    root_ = json_object_new_object();
    return root_ != nullptr ? ZELT_SUCCESS : ZELT_FAILED;
}

int CJSONManager::ImportFromJSONString(const char* utf8Text, int length) {
    if (utf8Text == nullptr || length == 0) return ZELT_BAD_ARGUMENT;
    // The text must end with its first zero byte right after length bytes;
    // the scan never reads past that point.
    if (length < 0 ||
        std::memchr(utf8Text, '\0', static_cast<std::size_t>(length) + 1) != utf8Text + length)
        return ZELT_BAD_ARGUMENT;
    ClearDocument();
    root_ = json_tokener_parse(utf8Text);
    return root_ != nullptr ? ZELT_SUCCESS : ZELT_BAD_ARGUMENT;
}

int CJSONManager::ImportFromJSONFile(const wchar_t* path) {
    if (path == nullptr) {
        LogManagerFailure(kImportPathNull);
        return ZELT_BAD_ARGUMENT;
    }
    std::uint32_t size = 0;
    if (!ProbeFileExclusive(path, size)) {
        LogManagerFailure(kImportOpenFailed);
        return ZELT_BAD_ARGUMENT;
    }
    if (size == 0) return ZELT_BAD_ARGUMENT;
    std::FILE* stream = OpenFileStream(path, "rb");
    if (stream == nullptr) return ZELT_BAD_ARGUMENT;
    char* buffer = AllocateImportBuffer(size);
    if (buffer == nullptr) {
        std::fclose(stream);
        return ZELT_FAILED;
    }
    if (std::fread(buffer, 1, size, stream) < size) {
        std::fclose(stream);
        std::free(buffer);
        return ZELT_BAD_ARGUMENT;
    }
    std::fclose(stream);
    ClearDocument();
    // Parsing stops at the first zero byte of the file.
    root_ = json_tokener_parse(buffer);
    return root_ != nullptr ? ZELT_SUCCESS : ZELT_FAILED;
}

int CJSONManager::SaveToJSONFile(const wchar_t* path) {
    // Closed on every way out, std::bad_alloc from building the text included.
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(OpenFileStream(path, "wb"),
                                                           &std::fclose);
    if (stream == nullptr) return ZELT_BAD_ARGUMENT;
    if (root_ == nullptr) {
        LogManagerFailure(kSaveWithoutText);
        return ZELT_NOTHING_TO_SAVE;
    }
    // A string root is saved as its bare characters, without quotes, up to
    // its first zero byte. The text goes to the file as it is written, so
    // that no copy of the whole document is held.
    JSONText text(stream.get());
    if (IsKind(root_, json_type_string))
        text.Append(json_object_get_string(root_), std::strlen(json_object_get_string(root_)));
    else
        AppendJSONText(root_, text);
    if (!text.Flush()) {
        LogManagerFailure(kSaveShortWrite);
        return ZELT_FAILED;
    }
    return ZELT_SUCCESS;
}

JSONNode* CJSONManager::GetRootElement() { return AsNode(root_); }

bool CJSONManager::ReplaceMember(json_object* object, const char* key, json_object* value) {
    json_object_object_del(object, key);
    if (json_object_object_add_ex(object, key, value, JSON_C_OBJECT_ADD_KEY_IS_NEW) == 0)
        return true;
    json_object_put(value);
    return false;
}

JSONNode* CJSONManager::AddElement(JSONNode* parent, const wchar_t* name, int type) {
    if (name == nullptr) return nullptr;
    // The parent itself needs no key, only a name that would fit the buffer.
    const bool parentItself =
        type == ZELT_ADD_PARENT_FOR_STRING || type == ZELT_ADD_PARENT_FOR_DWORD;
    char key[kAddedNameBytes];
    if (parentItself ? !NameFits<kAddedNameBytes>(name) : !ConvertName(name, key)) return nullptr;
    json_object* target = parent != nullptr ? AsJSON(parent) : root_;
    if (target == nullptr || type < ZELT_ADD_OBJECT || type > ZELT_ADD_PARENT_FOR_DWORD)
        return nullptr;
    if (parentItself) return AsNode(target);

    if (type == ZELT_ADD_OBJECT) {
        if (!IsContainer(target)) return AsNode(CreateUnattachedObject());
        json_object* object = json_object_new_object();
        if (object == nullptr) return nullptr;
        if (IsKind(target, json_type_object)) {
            if (!ReplaceMember(target, key, object)) return nullptr;
        } else if (json_object_array_add(target, object) != 0) {
            json_object_put(object);
            return nullptr;
        }
        return AsNode(object);
    }

    // ZELT_ADD_ARRAY or ZELT_ADD_ARRAY_ALTERNATIVE: only an object can hold it.
    if (!IsKind(target, json_type_object)) return nullptr;
    json_object* array = json_object_new_array();
    if (array == nullptr || !ReplaceMember(target, key, array)) return nullptr;
    return AsNode(array);
}

JSONNode* CJSONManager::GetElement(JSONNode* parent, const wchar_t* name) {
    if (name == nullptr) return nullptr;
    char key[kLookedUpNameBytes];
    if (!ConvertName(name, key)) return nullptr;
    json_object* target = parent != nullptr ? AsJSON(parent) : root_;
    if (target == nullptr) return nullptr;
    if (!IsKind(target, json_type_object)) return nullptr;
    // Keys are unique, so the hash lookup finds the first equal key. A
    // member whose value is JSON null gives null, as a missing one does.
    json_object* value = nullptr;
    json_object_object_get_ex(target, key, &value);
    return AsNode(value);
}

JSONNode* CJSONManager::GetArrayElement(JSONNode* array, const wchar_t* /*name*/, int index) {
    if (array == nullptr || index < 0) return nullptr;
    json_object* target = AsJSON(array);
    if (!IsKind(target, json_type_array)) return nullptr;
    if (static_cast<std::size_t>(index) >= json_object_array_length(target)) return nullptr;
    return AsNode(json_object_array_get_idx(target, static_cast<std::size_t>(index)));
}

int CJSONManager::StoreValue(json_object* node, const char* key, json_object* value) {
    if (value == nullptr) return ZELT_FAILED;
    if (IsKind(node, json_type_object))
        return ReplaceMember(node, key, value) ? ZELT_SUCCESS : ZELT_FAILED;
    if (json_object_array_add(node, value) == 0) return ZELT_SUCCESS;
    json_object_put(value);
    return ZELT_FAILED;
}

int CJSONManager::SetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD value) {
    if (node == nullptr) return ZELT_BAD_ARGUMENT;
    Utf8Text key;
    if (!key.Convert(name)) return ZELT_FAILED;
    if (!IsContainer(AsJSON(node))) return ZELT_BAD_ARGUMENT;
    // Stored as a signed 32-bit integer: values from 2147483648 up are written
    // as their negative reading and read back as the same DWORD.
    const auto stored = static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
    return StoreValue(AsJSON(node), key.Data(), json_object_new_int(stored));
}

int CJSONManager::SetStringAttribute(JSONNode* node, const wchar_t* name, const wchar_t* value) {
    if (node == nullptr || value == nullptr) return ZELT_BAD_ARGUMENT;
    // Any name there is converts, but only an object uses it: an array takes
    // the value as its next item.
    Utf8Text text, key;
    if (!text.Convert(value) || name == nullptr) return ZELT_FAILED;
    json_object* target = AsJSON(node);
    const json_type kind = json_object_get_type(target);
    if (kind != json_type_object && kind != json_type_array) return ZELT_BAD_ARGUMENT;
    if (kind == json_type_object && !key.Convert(name)) return ZELT_FAILED;
    return StoreValue(target, key.Data(),
                      json_object_new_string_len(text.Data(), SaturatedInt(text.Size())));
}

json_object* CJSONManager::FindAttribute(json_object* node, const wchar_t* name) {
    if (IsKind(node, json_type_string)) return node;
    return AsJSON(GetElement(AsNode(node), name));
}

int CJSONManager::GetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD* value) {
    if (name == nullptr || value == nullptr) return ZELT_BAD_ARGUMENT;
    json_object* target = node != nullptr ? AsJSON(node) : root_;
    if (target == nullptr) return ZELT_BAD_ARGUMENT;
    json_object* attribute = FindAttribute(target, name);
    if (attribute == nullptr) return ZELT_NOT_PRESENT;
    *value = static_cast<std::uint32_t>(IntegerReading(attribute));
    return ZELT_SUCCESS;
}

int CJSONManager::DeliverText(json_object* node, wchar_t* buffer, int* length) {
    JSONText serialized;
    const char* text;
    std::size_t bytes;
    if (IsKind(node, json_type_string)) {
        text = json_object_get_string(node);
        bytes = static_cast<std::size_t>(json_object_get_string_len(node));
    } else {
        AppendJSONText(node, serialized);
        text = serialized.Data();
        bytes = serialized.Size();
    }
    if (text == nullptr) return ZELT_NOT_PRESENT;
    if (length == nullptr) return ZELT_BAD_ARGUMENT;
    // Every unit comes from at least one byte, so a buffer of bytes + 2 units
    // always holds the text and the needed length: then one pass converts.
    if (buffer != nullptr && *length >= 0 && bytes + 2 <= static_cast<std::size_t>(*length)) {
        *length = SaturatedInt(ConvertUtf8ToWide(text, buffer, bytes + 1) + 1);
        return ZELT_SUCCESS;
    }
    // The needed length counts one unit beyond the terminator; callers rely
    // on exactly this value.
    const std::size_t units = ConvertUtf8ToWide(text, nullptr, 0);
    const int needed = SaturatedInt(units + 1);
    if (needed > *length) {
        *length = needed;
        return ZELT_BUFFER_TOO_SMALL;
    }
    if (buffer == nullptr) return ZELT_BAD_ARGUMENT;
    ConvertUtf8ToWide(text, buffer, units);
    *length = needed;
    return ZELT_SUCCESS;
}

int CJSONManager::GetStringAttribute(JSONNode* node, const wchar_t* name, wchar_t* buffer,
                                     int* length) {
    if (name == nullptr) return ZELT_BAD_ARGUMENT;
    json_object* target = node != nullptr ? AsJSON(node) : root_;
    if (target == nullptr) return ZELT_BAD_ARGUMENT;
    json_object* attribute = FindAttribute(target, name);
    if (attribute == nullptr) return ZELT_NOT_PRESENT;
    return DeliverText(attribute, buffer, length);
}

int CJSONManager::GetArrayStringAttribute(JSONNode* array, const wchar_t* name, int index,
                                          wchar_t* buffer, int* length) {
    if (name == nullptr) return ZELT_BAD_ARGUMENT;
    JSONNode* target = array != nullptr ? array : AsNode(root_);
    if (target == nullptr) return ZELT_BAD_ARGUMENT;
    json_object* item = AsJSON(GetArrayElement(target, name, index));
    if (item == nullptr) return ZELT_NOT_PRESENT;
    return DeliverText(item, buffer, length);
}

int CJSONManager::GetArrayCount(JSONNode* array, const wchar_t* /*name*/) {
    if (array == nullptr) return ZELT_FAILED;
    // A node that is not an array gives 2, like a two-item array: callers
    // treat the result as a count.
    if (!IsKind(AsJSON(array), json_type_array)) return ZELT_NOT_PRESENT;
    return SaturatedInt(json_object_array_length(AsJSON(array)));
}

int CJSONManager::RemoveElement(JSONNode* parent, const wchar_t* name) {
    if (parent == nullptr || name == nullptr) return ZELT_BAD_ARGUMENT;
    char key[kLookedUpNameBytes];
    if (!ConvertName(name, key)) return ZELT_BAD_ARGUMENT;
    if (GetElement(parent, name) == nullptr) return ZELT_NOT_PRESENT;
    json_object_object_del(AsJSON(parent), key);
    return ZELT_SUCCESS;
}

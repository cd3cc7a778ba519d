// JSONManagerOperationsTest.cpp: the manager's element and attribute
// operations: creating, finding and removing members, DWORD and string
// attributes with their conversions, the caller-buffer protocol, array items
// and counts, name length limits, and the interface's virtual slot order.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/LogCapture.h"
#include "support/ManagerTesting.h"
#include "support/VirtualSlot.h"

namespace {

// U+FFFD as the library writes an invalid code point: EF BF BD.
const char kReplacementUtf8[] = "\xEF\xBF\xBD";

class JSONManagerOperationsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ClearCapturedLogs();
        manager_ = NewManager();
        ASSERT_NE(manager_, nullptr);
        ASSERT_EQ(manager_->CreateNewDocument(), ZELT_SUCCESS);
        root_ = manager_->GetRootElement();
        ASSERT_NE(root_, nullptr);
    }

    // None of these operations logs anything, successful or not.
    void TearDown() override { EXPECT_TRUE(CapturedLogs().empty()); }

    // Replaces the document with the one parsed from text.
    void Load(const std::string& text) {
        ASSERT_EQ(ImportText(*manager_, text), ZELT_SUCCESS) << text;
        root_ = manager_->GetRootElement();
    }

    std::string Saved() { return SavedText(*manager_); }
    JSONNode* Member(const wchar_t* name) { return manager_->GetElement(root_, name); }

    // The DWORD reading of member name; the test fails if it is not present.
    DWORD DWORDOf(JSONNode* node, const wchar_t* name) {
        DWORD value = 0xDEADBEEF;
        EXPECT_EQ(manager_->GetDWORDAttribute(node, name, &value), ZELT_SUCCESS) << "member";
        return value;
    }

    std::wstring StringOf(JSONNode* node, const wchar_t* name) {
        const StringRead read = ReadString(*manager_, node, name);
        EXPECT_EQ(read.result, ZELT_SUCCESS);
        return read.text;
    }

    ExportDestroyedManagerPtr manager_;
    JSONNode* root_ = nullptr;
};

std::wstring Unit(std::uint32_t codePoint) {
    return std::wstring(1, static_cast<wchar_t>(codePoint));
}

// A wide unit that is no code point of its own and is not a high surrogate:
// above U+10FFFF where wchar_t holds code points, a lone low surrogate where
// it is a UTF-16 unit.
const std::uint32_t kNotACodePoint = kWideTextIsUtf16 ? 0xDC00 : 0x110000;

// ---- AddElement

TEST_F(JSONManagerOperationsTest, AddElementNullNameReturnsNull) {
    for (int type : {ZELT_ADD_OBJECT, ZELT_ADD_ARRAY, ZELT_ADD_ARRAY_ALTERNATIVE,
                     ZELT_ADD_PARENT_FOR_STRING, ZELT_ADD_PARENT_FOR_DWORD, 5}) {
        SCOPED_TRACE(type);
        EXPECT_EQ(manager_->AddElement(root_, nullptr, type), nullptr);
        EXPECT_EQ(manager_->AddElement(nullptr, nullptr, type), nullptr);
    }
    EXPECT_EQ(Saved(), "{ }");
}

TEST_F(JSONManagerOperationsTest, AddElementNullParentUsesRoot) {
    JSONNode* node = manager_->AddElement(nullptr, L"a", ZELT_ADD_OBJECT);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(Member(L"a"), node);
    EXPECT_EQ(Saved(), "{ \"a\": { } }");
}

TEST_F(JSONManagerOperationsTest, AddElementWithoutDocumentReturnsNull) {
    ExportDestroyedManagerPtr empty = NewManager();
    for (int type : {ZELT_ADD_OBJECT, ZELT_ADD_ARRAY, ZELT_ADD_ARRAY_ALTERNATIVE,
                     ZELT_ADD_PARENT_FOR_STRING, ZELT_ADD_PARENT_FOR_DWORD}) {
        SCOPED_TRACE(type);
        EXPECT_EQ(empty->AddElement(nullptr, L"a", type), nullptr);
    }
    EXPECT_EQ(empty->GetRootElement(), nullptr);
}

TEST_F(JSONManagerOperationsTest, AddElementTypeZeroCreatesObject) {
    JSONNode* node = manager_->AddElement(root_, L"o", ZELT_ADD_OBJECT);
    ASSERT_NE(node, nullptr);
    EXPECT_NE(node, root_);
    EXPECT_EQ(manager_->SetDWORDAttribute(node, L"x", 1), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"o\": { \"x\": 1 } }");
}

TEST_F(JSONManagerOperationsTest, AddElementTypesOneAndTwoCreateArrays) {
    JSONNode* first = manager_->AddElement(root_, L"a1", ZELT_ADD_ARRAY);
    JSONNode* second = manager_->AddElement(root_, L"a2", ZELT_ADD_ARRAY_ALTERNATIVE);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(manager_->GetArrayCount(first, L"a1"), 0);
    EXPECT_EQ(manager_->GetArrayCount(second, L"a2"), 0);
    EXPECT_EQ(Saved(), "{ \"a1\": [ ], \"a2\": [ ] }");
}

TEST_F(JSONManagerOperationsTest, AddElementTypesThreeAndFourReturnParent) {
    JSONNode* child = manager_->AddElement(root_, L"c", ZELT_ADD_OBJECT);
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    for (int type : {ZELT_ADD_PARENT_FOR_STRING, ZELT_ADD_PARENT_FOR_DWORD}) {
        SCOPED_TRACE(type);
        EXPECT_EQ(manager_->AddElement(root_, L"x", type), root_);
        EXPECT_EQ(manager_->AddElement(nullptr, L"x", type), root_);
        EXPECT_EQ(manager_->AddElement(child, L"x", type), child);
        EXPECT_EQ(manager_->AddElement(list, L"x", type), list);
    }
    EXPECT_EQ(Saved(), "{ \"c\": { }, \"l\": [ ] }");
}

TEST_F(JSONManagerOperationsTest, AddElementUnknownTypesRefused) {
    for (int type : {5, 6, -1, 100, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(type);
        EXPECT_EQ(manager_->AddElement(root_, L"x", type), nullptr);
        EXPECT_EQ(manager_->AddElement(nullptr, L"x", type), nullptr);
    }
    EXPECT_EQ(Saved(), "{ }");
}

TEST_F(JSONManagerOperationsTest, AddElementSameNameTwiceReplacesAndMovesLast) {
    JSONNode* first = manager_->AddElement(root_, L"a", ZELT_ADD_OBJECT);
    ASSERT_NE(first, nullptr);
    ASSERT_EQ(manager_->SetDWORDAttribute(first, L"inner", 1), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"b", 2), ZELT_SUCCESS);
    JSONNode* second = manager_->AddElement(root_, L"a", ZELT_ADD_OBJECT);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(Member(L"a"), second);
    EXPECT_EQ(Saved(), "{ \"b\": 2, \"a\": { } }");
}

TEST_F(JSONManagerOperationsTest, AddElementArrayReplacesMemberOfOtherKind) {
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"a", L"text"), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"b", 2), ZELT_SUCCESS);
    JSONNode* list = manager_->AddElement(root_, L"a", ZELT_ADD_ARRAY_ALTERNATIVE);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(Member(L"a"), list);
    EXPECT_EQ(Saved(), "{ \"b\": 2, \"a\": [ ] }");
}

TEST_F(JSONManagerOperationsTest, AddElementObjectIntoArrayAppends) {
    JSONNode* list = manager_->AddElement(root_, L"list", ZELT_ADD_ARRAY);
    ASSERT_NE(list, nullptr);
    JSONNode* first = manager_->AddElement(list, L"ignored", ZELT_ADD_OBJECT);
    JSONNode* second = manager_->AddElement(list, L"list", ZELT_ADD_OBJECT);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(manager_->GetArrayCount(list, L"list"), 2);
    EXPECT_EQ(manager_->GetArrayElement(list, L"list", 0), first);
    EXPECT_EQ(manager_->GetArrayElement(list, L"list", 1), second);
    ASSERT_EQ(manager_->SetDWORDAttribute(second, L"n", 2), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"list\": [ { }, { \"n\": 2 } ] }");
}

TEST_F(JSONManagerOperationsTest, AddElementArrayIntoArrayRefused) {
    JSONNode* list = manager_->AddElement(root_, L"list", ZELT_ADD_ARRAY);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(manager_->AddElement(list, L"x", ZELT_ADD_ARRAY), nullptr);
    EXPECT_EQ(manager_->AddElement(list, L"x", ZELT_ADD_ARRAY_ALTERNATIVE), nullptr);
    EXPECT_EQ(Saved(), "{ \"list\": [ ] }");
}

TEST_F(JSONManagerOperationsTest, AddElementObjectUnderScalarIsAttachedNowhere) {
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"n", 5), ZELT_SUCCESS);
    JSONNode* scalar = Member(L"n");
    ASSERT_NE(scalar, nullptr);
    // The detached object is returned and usable, and intentionally never freed.
    JSONNode* detached = manager_->AddElement(scalar, L"x", ZELT_ADD_OBJECT);
    ASSERT_NE(detached, nullptr);
    EXPECT_EQ(manager_->SetDWORDAttribute(detached, L"y", 7), ZELT_SUCCESS);
    EXPECT_EQ(DWORDOf(detached, L"y"), 7u);
    EXPECT_EQ(Saved(), "{ \"n\": 5 }");
}

TEST_F(JSONManagerOperationsTest, AddElementArrayUnderScalarRefused) {
    Load("{\"n\":5,\"s\":\"t\",\"b\":true}");
    for (const wchar_t* name : {L"n", L"s", L"b"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        EXPECT_EQ(manager_->AddElement(Member(name), L"x", ZELT_ADD_ARRAY), nullptr);
        EXPECT_EQ(manager_->AddElement(Member(name), L"x", ZELT_ADD_ARRAY_ALTERNATIVE), nullptr);
    }
    EXPECT_EQ(Saved(), "{ \"n\": 5, \"s\": \"t\", \"b\": true }");
}

TEST_F(JSONManagerOperationsTest, AddElementEmptyName) {
    ASSERT_NE(manager_->AddElement(root_, L"", ZELT_ADD_OBJECT), nullptr);
    EXPECT_NE(Member(L""), nullptr);
    EXPECT_EQ(Saved(), "{ \"\": { } }");
}

TEST_F(JSONManagerOperationsTest, AddElementNonAsciiName) {
    ASSERT_NE(manager_->AddElement(root_, L"\u00E9\u20AC\U0001F600", ZELT_ADD_OBJECT), nullptr);
    EXPECT_NE(Member(L"\u00E9\u20AC\U0001F600"), nullptr);
    EXPECT_EQ(Saved(), "{ \"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\": { } }");
}

TEST_F(JSONManagerOperationsTest, AddElementInvalidCodePointsBecomeReplacementCharacter) {
    ASSERT_NE(manager_->AddElement(root_, Unit(0xD800).c_str(), ZELT_ADD_OBJECT), nullptr);
    ASSERT_NE(manager_->AddElement(root_, (L"a" + Unit(kNotACodePoint)).c_str(), ZELT_ADD_ARRAY),
              nullptr);
    EXPECT_EQ(Saved(), std::string("{ \"") + kReplacementUtf8 + "\": { }, \"a" + kReplacementUtf8 +
                           "\": [ ] }");
    EXPECT_NE(Member(L"\uFFFD"), nullptr);
}

TEST_F(JSONManagerOperationsTest, AddElementNameOf259BytesFits) {
    const std::wstring ascii(259, L'n');
    const std::wstring twoByte = Repeated(L'\u00E9', 129) + L"a";
    const std::wstring threeByte = Repeated(L'\u20AC', 86) + L"a";
    const std::wstring fourByte = Repeated(CodePoint(0x1F600), 64) + L"abc";
    for (const std::wstring& name : {ascii, twoByte, threeByte, fourByte}) {
        SCOPED_TRACE(name.size());
        JSONNode* node = manager_->AddElement(root_, name.c_str(), ZELT_ADD_OBJECT);
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(Member(name.c_str()), node);
    }
    EXPECT_EQ(Saved(), "{ \"" + std::string(259, 'n') + "\": { }, \"" +
                           RepeatedBytes("\xC3\xA9", 129) + "a\": { }, \"" +
                           RepeatedBytes("\xE2\x82\xAC", 86) + "a\": { }, \"" +
                           RepeatedBytes("\xF0\x9F\x98\x80", 64) + "abc\": { } }");
}

TEST_F(JSONManagerOperationsTest, AddElementNameOf260BytesFails) {
    const std::wstring ascii(260, L'n');
    const std::wstring twoByte = Repeated(L'\u00E9', 130);
    const std::wstring threeByte = Repeated(L'\u20AC', 86) + L"ab";
    const std::wstring fourByte = Repeated(CodePoint(0x1F600), 65);
    const std::wstring longer(1000, L'n');
    for (const std::wstring& name : {ascii, twoByte, threeByte, fourByte, longer}) {
        SCOPED_TRACE(name.size());
        for (int type : {ZELT_ADD_OBJECT, ZELT_ADD_ARRAY, ZELT_ADD_PARENT_FOR_STRING})
            EXPECT_EQ(manager_->AddElement(root_, name.c_str(), type), nullptr);
    }
    EXPECT_EQ(Saved(), "{ }");
}

// ---- GetElement

TEST_F(JSONManagerOperationsTest, GetElementNullNameReturnsNull) {
    Load("{\"a\":1}");
    EXPECT_EQ(manager_->GetElement(root_, nullptr), nullptr);
    EXPECT_EQ(manager_->GetElement(nullptr, nullptr), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetElementNullParentUsesRoot) {
    JSONNode* node = manager_->AddElement(root_, L"a", ZELT_ADD_OBJECT);
    EXPECT_EQ(manager_->GetElement(nullptr, L"a"), node);
}

TEST_F(JSONManagerOperationsTest, GetElementWithoutDocumentReturnsNull) {
    ExportDestroyedManagerPtr empty = NewManager();
    EXPECT_EQ(empty->GetElement(nullptr, L"a"), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetElementMissingReturnsNull) {
    Load("{\"a\":1,\"b\":{\"c\":2}}");
    EXPECT_EQ(Member(L"c"), nullptr);
    EXPECT_EQ(Member(L"ab"), nullptr);
    EXPECT_EQ(Member(L""), nullptr);
    EXPECT_NE(manager_->GetElement(Member(L"b"), L"c"), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetElementIsCaseSensitive) {
    Load("{\"Name\":1}");
    EXPECT_NE(Member(L"Name"), nullptr);
    EXPECT_EQ(Member(L"name"), nullptr);
    EXPECT_EQ(Member(L"NAME"), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetElementOfNonObjectParentReturnsNull) {
    Load("{\"l\":[{\"a\":1}],\"n\":1,\"s\":\"a\",\"b\":false}");
    for (const wchar_t* parent : {L"l", L"n", L"s", L"b"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(parent)));
        ASSERT_NE(Member(parent), nullptr);
        EXPECT_EQ(manager_->GetElement(Member(parent), L"a"), nullptr);
    }
}

TEST_F(JSONManagerOperationsTest, GetElementOfJsonNullMemberReturnsNull) {
    Load("{\"n\":null,\"a\":1}");
    EXPECT_EQ(Member(L"n"), nullptr);
    EXPECT_NE(Member(L"a"), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetElementFindsEveryKindOfValue) {
    Load("{\"i\":1,\"d\":1.5,\"b\":true,\"s\":\"x\",\"o\":{},\"a\":[],\"e\":\"\"}");
    for (const wchar_t* name : {L"i", L"d", L"b", L"s", L"o", L"a", L"e"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        EXPECT_NE(Member(name), nullptr);
    }
}

TEST_F(JSONManagerOperationsTest, GetElementNonAsciiName) {
    Load("{\"\\u00e9t\\u00e9\":1,\"\\ud83d\\ude00\":2,\"\xE2\x82\xAC\":3}");
    EXPECT_EQ(DWORDOf(root_, L"\u00E9t\u00E9"), 1u);
    EXPECT_EQ(DWORDOf(root_, L"\U0001F600"), 2u);
    EXPECT_EQ(DWORDOf(root_, L"\u20AC"), 3u);
}

TEST_F(JSONManagerOperationsTest, GetElementNameOf1023BytesFits) {
    const std::wstring names[] = {std::wstring(1023, L'k'), Repeated(L'\u00E9', 511) + L"a",
                                  Repeated(L'\u20AC', 341),
                                  Repeated(CodePoint(0x1F600), 255) + L"abc"};
    for (const std::wstring& name : names) {
        SCOPED_TRACE(name.size());
        ASSERT_EQ(manager_->SetDWORDAttribute(root_, name.c_str(), 9), ZELT_SUCCESS);
        EXPECT_NE(Member(name.c_str()), nullptr);
    }
}

TEST_F(JSONManagerOperationsTest, GetElementNameOf1024BytesFails) {
    const std::wstring names[] = {std::wstring(1024, L'k'), Repeated(L'\u00E9', 512),
                                  Repeated(L'\u20AC', 341) + L"a",
                                  Repeated(CodePoint(0x1F600), 256)};
    for (const std::wstring& name : names) {
        SCOPED_TRACE(name.size());
        // The member exists (setting has no name limit) but cannot be looked up.
        ASSERT_EQ(manager_->SetDWORDAttribute(root_, name.c_str(), 9), ZELT_SUCCESS);
        EXPECT_EQ(Member(name.c_str()), nullptr);
    }
    EXPECT_NE(Saved().find("\"" + std::string(1024, 'k') + "\": 9"), std::string::npos);
}

// ---- GetArrayElement

TEST_F(JSONManagerOperationsTest, GetArrayElementNullArrayReturnsNull) {
    Load("[1,2]");
    EXPECT_EQ(manager_->GetArrayElement(nullptr, L"a", 0), nullptr);
    EXPECT_EQ(manager_->GetArrayElement(nullptr, nullptr, 0), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetArrayElementOfNonArrayReturnsNull) {
    Load("{\"n\":1,\"s\":\"abc\",\"o\":{\"0\":1}}");
    EXPECT_EQ(manager_->GetArrayElement(root_, L"x", 0), nullptr);
    for (const wchar_t* name : {L"n", L"s", L"o"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        EXPECT_EQ(manager_->GetArrayElement(Member(name), name, 0), nullptr);
    }
}

TEST_F(JSONManagerOperationsTest, GetArrayElementIndexBounds) {
    Load("{\"l\":[{\"v\":10},{\"v\":20},{\"v\":30}]}");
    JSONNode* list = Member(L"l");
    ASSERT_NE(list, nullptr);
    JSONNode* first = manager_->GetArrayElement(list, L"l", 0);
    JSONNode* last = manager_->GetArrayElement(list, L"l", 2);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(DWORDOf(first, L"v"), 10u);
    EXPECT_EQ(DWORDOf(last, L"v"), 30u);
    EXPECT_EQ(manager_->GetArrayElement(list, L"l", 3), nullptr);
    EXPECT_EQ(manager_->GetArrayElement(list, L"l", 100), nullptr);
    EXPECT_EQ(manager_->GetArrayElement(list, L"l", INT_MAX), nullptr);
    EXPECT_EQ(manager_->GetArrayElement(list, L"l", -1), nullptr);
    EXPECT_EQ(manager_->GetArrayElement(list, L"l", INT_MIN), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetArrayElementOfEmptyArrayReturnsNull) {
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    EXPECT_EQ(manager_->GetArrayElement(list, L"l", 0), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetArrayElementOfJsonNullItemReturnsNull) {
    Load("[1,null,2]");
    EXPECT_NE(manager_->GetArrayElement(root_, L"x", 0), nullptr);
    EXPECT_EQ(manager_->GetArrayElement(root_, L"x", 1), nullptr);
    EXPECT_NE(manager_->GetArrayElement(root_, L"x", 2), nullptr);
}

TEST_F(JSONManagerOperationsTest, GetArrayElementDoesNotUseName) {
    Load("{\"l\":[\"a\",\"b\"],\"m\":[1]}");
    JSONNode* list = Member(L"l");
    JSONNode* item = manager_->GetArrayElement(list, L"l", 1);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(manager_->GetArrayElement(list, nullptr, 1), item);
    EXPECT_EQ(manager_->GetArrayElement(list, L"m", 1), item);
    EXPECT_EQ(StringOf(item, L"ignored"), L"b");
}

// ---- SetDWORDAttribute

TEST_F(JSONManagerOperationsTest, SetDWORDNullNodeFails) {
    EXPECT_EQ(manager_->SetDWORDAttribute(nullptr, L"a", 1), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(Saved(), "{ }");
}

TEST_F(JSONManagerOperationsTest, SetDWORDNullNameFailsConversion) {
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    EXPECT_EQ(manager_->SetDWORDAttribute(root_, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(manager_->SetDWORDAttribute(list, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(Saved(), "{ \"l\": [ ] }");
}

TEST_F(JSONManagerOperationsTest, SetDWORDOnObjectSetsMember) {
    EXPECT_EQ(manager_->SetDWORDAttribute(root_, L"a", 1), ZELT_SUCCESS);
    EXPECT_EQ(manager_->SetDWORDAttribute(root_, L"b", 0), ZELT_SUCCESS);
    EXPECT_EQ(DWORDOf(root_, L"a"), 1u);
    EXPECT_EQ(Saved(), "{ \"a\": 1, \"b\": 0 }");
}

TEST_F(JSONManagerOperationsTest, SetDWORDOnArrayAppends) {
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    EXPECT_EQ(manager_->SetDWORDAttribute(list, L"l", 1), ZELT_SUCCESS);
    EXPECT_EQ(manager_->SetDWORDAttribute(list, L"other", 2), ZELT_SUCCESS);
    EXPECT_EQ(manager_->SetDWORDAttribute(list, L"l", 4294967295u), ZELT_SUCCESS);
    EXPECT_EQ(manager_->GetArrayCount(list, L"l"), 3);
    EXPECT_EQ(Saved(), "{ \"l\": [ 1, 2, -1 ] }");
}

TEST_F(JSONManagerOperationsTest, SetDWORDOnScalarRefused) {
    Load("{\"n\":5,\"s\":\"t\",\"b\":true,\"d\":1.5}");
    for (const wchar_t* name : {L"n", L"s", L"b", L"d"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        EXPECT_EQ(manager_->SetDWORDAttribute(Member(name), L"x", 1), ZELT_BAD_ARGUMENT);
    }
    EXPECT_EQ(Saved(), "{ \"n\": 5, \"s\": \"t\", \"b\": true, \"d\": 1.500000 }");
}

TEST_F(JSONManagerOperationsTest, SetDWORDTwiceMovesMemberLast) {
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"a", 1), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"b", 2), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"a", 3), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"b\": 2, \"a\": 3 }");
    EXPECT_EQ(DWORDOf(root_, L"a"), 3u);
}

TEST_F(JSONManagerOperationsTest, SetDWORDReplacesSubtree) {
    JSONNode* object = manager_->AddElement(root_, L"a", ZELT_ADD_OBJECT);
    ASSERT_NE(manager_->AddElement(object, L"deep", ZELT_ADD_ARRAY), nullptr);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"b", 2), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"a", 9), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"b\": 2, \"a\": 9 }");
}

TEST_F(JSONManagerOperationsTest, SetDWORDWritesSigned32BitText) {
    const DWORD values[] = {0u, 1u, 2147483647u, 2147483648u, 4294967295u};
    const char* texts[] = {"0", "1", "2147483647", "-2147483648", "-1"};
    for (std::size_t i = 0; i < 5; ++i) {
        SCOPED_TRACE(values[i]);
        ExportDestroyedManagerPtr writer = NewManager();
        ASSERT_EQ(writer->CreateNewDocument(), ZELT_SUCCESS);
        ASSERT_EQ(writer->SetDWORDAttribute(writer->GetRootElement(), L"v", values[i]),
                  ZELT_SUCCESS);
        const std::string saved = SavedText(*writer);
        EXPECT_EQ(saved, std::string("{ \"v\": ") + texts[i] + " }");
        ExportDestroyedManagerPtr reader = ManagerWithText(saved);
        DWORD value = 0xDEADBEEF;
        EXPECT_EQ(reader->GetDWORDAttribute(nullptr, L"v", &value), ZELT_SUCCESS);
        EXPECT_EQ(value, values[i]);
    }
}

TEST_F(JSONManagerOperationsTest, SetDWORDNameHasNoLengthLimit) {
    const std::wstring name(5000, L'k');
    EXPECT_EQ(manager_->SetDWORDAttribute(root_, name.c_str(), 3), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"" + std::string(5000, 'k') + "\": 3 }");
}

TEST_F(JSONManagerOperationsTest, SetDWORDInvalidCodePointInName) {
    EXPECT_EQ(manager_->SetDWORDAttribute(root_, (L"x" + Unit(0xDFFF)).c_str(), 3), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), std::string("{ \"x") + kReplacementUtf8 + "\": 3 }");
}

// ---- SetStringAttribute

TEST_F(JSONManagerOperationsTest, SetStringNullNodeFails) {
    EXPECT_EQ(manager_->SetStringAttribute(nullptr, L"a", L"v"), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(Saved(), "{ }");
}

TEST_F(JSONManagerOperationsTest, SetStringNullValueFails) {
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    EXPECT_EQ(manager_->SetStringAttribute(root_, L"a", nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->SetStringAttribute(list, L"a", nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->SetStringAttribute(root_, nullptr, nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(Saved(), "{ \"l\": [ ] }");
}

TEST_F(JSONManagerOperationsTest, SetStringNullNameFailsConversion) {
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"a", L"old"), ZELT_SUCCESS);
    EXPECT_EQ(manager_->SetStringAttribute(root_, nullptr, L"v"), ZELT_FAILED);
    EXPECT_EQ(manager_->SetStringAttribute(list, nullptr, L"v"), ZELT_FAILED);
    EXPECT_EQ(Saved(), "{ \"l\": [ ], \"a\": \"old\" }");
}

TEST_F(JSONManagerOperationsTest, SetStringOnObjectSetsMember) {
    EXPECT_EQ(manager_->SetStringAttribute(root_, L"s", L"abc"), ZELT_SUCCESS);
    EXPECT_EQ(StringOf(root_, L"s"), L"abc");
    EXPECT_EQ(Saved(), "{ \"s\": \"abc\" }");
}

TEST_F(JSONManagerOperationsTest, SetStringOnArrayAppends) {
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    EXPECT_EQ(manager_->SetStringAttribute(list, L"l", L"a"), ZELT_SUCCESS);
    EXPECT_EQ(manager_->SetStringAttribute(list, L"zzz", L"b"), ZELT_SUCCESS);
    EXPECT_EQ(manager_->GetArrayCount(list, L"l"), 2);
    EXPECT_EQ(Saved(), "{ \"l\": [ \"a\", \"b\" ] }");
}

TEST_F(JSONManagerOperationsTest, SetStringOnScalarRefused) {
    Load("{\"n\":5,\"s\":\"t\",\"b\":false}");
    for (const wchar_t* name : {L"n", L"s", L"b"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        EXPECT_EQ(manager_->SetStringAttribute(Member(name), L"x", L"v"), ZELT_BAD_ARGUMENT);
    }
    EXPECT_EQ(Saved(), "{ \"n\": 5, \"s\": \"t\", \"b\": false }");
}

TEST_F(JSONManagerOperationsTest, SetStringEmptyValue) {
    EXPECT_EQ(manager_->SetStringAttribute(root_, L"s", L""), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"s\": \"\" }");
    std::vector<wchar_t> buffer(4, L'#');
    int length = 2;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(buffer[0], L'\0');
    EXPECT_EQ(buffer[1], L'#');
}

TEST_F(JSONManagerOperationsTest, SetStringNonAsciiValueStoredAsUtf8) {
    const std::wstring value = L"a\u00E9\u20AC\U0001F600";
    EXPECT_EQ(manager_->SetStringAttribute(root_, L"s", value.c_str()), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"s\": \"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\" }");
    EXPECT_EQ(StringOf(root_, L"s"), value);
}

TEST_F(JSONManagerOperationsTest, SetStringInvalidCodePointsBecomeReplacementCharacter) {
    const std::wstring value =
        L"a" + Unit(0xD800) + L"b" + Unit(0xDC00) + Unit(kNotACodePoint) + L"c";
    EXPECT_EQ(manager_->SetStringAttribute(root_, L"s", value.c_str()), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), std::string("{ \"s\": \"a") + kReplacementUtf8 + "b" + kReplacementUtf8 +
                           kReplacementUtf8 + "c\" }");
    EXPECT_EQ(StringOf(root_, L"s"), L"a\uFFFDb\uFFFD\uFFFDc");
}

TEST_F(JSONManagerOperationsTest, SetStringTwiceMovesMemberLast) {
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"a", L"1"), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"b", 2), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"a", L"3"), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"b\": 2, \"a\": \"3\" }");
}

TEST_F(JSONManagerOperationsTest, SetStringReplacesSubtree) {
    JSONNode* object = manager_->AddElement(root_, L"a", ZELT_ADD_OBJECT);
    ASSERT_EQ(manager_->SetStringAttribute(object, L"inner", L"x"), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"b", 2), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"a", L"flat"), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"b\": 2, \"a\": \"flat\" }");
}

TEST_F(JSONManagerOperationsTest, SetStringLongValueAndName) {
    const std::wstring value(100000, L'\u00E9');
    EXPECT_EQ(manager_->SetStringAttribute(root_, L"s", value.c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager_->SetStringAttribute(root_, std::wstring(3000, L'k').c_str(), L"v"),
              ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ \"s\": \"" + RepeatedBytes("\xC3\xA9", 100000) + "\", \"" +
                           std::string(3000, 'k') + "\": \"v\" }");
    EXPECT_EQ(StringOf(root_, L"s"), value);
}

// ---- GetDWORDAttribute

TEST_F(JSONManagerOperationsTest, GetDWORDNullNameOrValueFails) {
    Load("{\"a\":1}");
    DWORD value = 77;
    EXPECT_EQ(manager_->GetDWORDAttribute(root_, nullptr, &value), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->GetDWORDAttribute(nullptr, nullptr, &value), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(value, 77u);
    EXPECT_EQ(manager_->GetDWORDAttribute(root_, L"a", nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->GetDWORDAttribute(nullptr, L"a", nullptr), ZELT_BAD_ARGUMENT);
}

TEST_F(JSONManagerOperationsTest, GetDWORDNullNodeUsesRoot) {
    Load("{\"a\":17}");
    DWORD value = 0;
    EXPECT_EQ(manager_->GetDWORDAttribute(nullptr, L"a", &value), ZELT_SUCCESS);
    EXPECT_EQ(value, 17u);
}

TEST_F(JSONManagerOperationsTest, GetDWORDWithoutDocumentFails) {
    ExportDestroyedManagerPtr empty = NewManager();
    DWORD value = 77;
    EXPECT_EQ(empty->GetDWORDAttribute(nullptr, L"a", &value), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(value, 77u);
}

TEST_F(JSONManagerOperationsTest, GetDWORDMissingIsNotPresent) {
    Load("{\"a\":1,\"n\":null}");
    DWORD value = 77;
    EXPECT_EQ(manager_->GetDWORDAttribute(root_, L"b", &value), ZELT_NOT_PRESENT);
    EXPECT_EQ(manager_->GetDWORDAttribute(root_, L"A", &value), ZELT_NOT_PRESENT);
    EXPECT_EQ(manager_->GetDWORDAttribute(root_, L"n", &value), ZELT_NOT_PRESENT);
    EXPECT_EQ(value, 77u);
}

TEST_F(JSONManagerOperationsTest, GetDWORDConvertsEveryKind) {
    Load(R"({"i":42,"neg":-7,"zero":0,"big":4294967295,"half":2147483648,"min":-2147483648,)"
         R"("s1":"12abc","s2":"  -7x","s3":"abc","s4":"","s5":"+5","t":true,"f":false,)"
         R"("d1":3.9,"d2":-3.9,"d3":0.5,"o":{"x":1},"a":[1,2]})");
    const struct {
        const wchar_t* name;
        DWORD expected;
    } cases[] = {{L"i", 42u},
                 {L"neg", 4294967289u},
                 {L"zero", 0u},
                 {L"big", 4294967295u},
                 {L"half", 2147483648u},
                 {L"min", 2147483648u},
                 {L"s1", 12u},
                 {L"s2", 4294967289u},
                 {L"s3", 0u},
                 {L"s4", 0u},
                 {L"s5", 5u},
                 {L"t", 1u},
                 {L"f", 0u},
                 {L"d1", 3u},
                 {L"d2", 4294967293u},
                 {L"d3", 0u},
                 {L"o", 0u},
                 {L"a", 0u}};
    for (const auto& entry : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(entry.name)));
        EXPECT_EQ(DWORDOf(root_, entry.name), entry.expected);
    }
}

TEST_F(JSONManagerOperationsTest, GetDWORDTakesLow32BitsOfWideIntegers) {
    Load(R"({"p32":4294967296,"p33":4294967297,"max64":9223372036854775807,)"
         R"("u64":9223372036854775808,"huge":99999999999999999999,)"
         R"("nhuge":-99999999999999999999,"n33":-4294967297})");
    const struct {
        const wchar_t* name;
        DWORD expected;
    } cases[] = {{L"p32", 0u},          {L"p33", 1u},           {L"max64", 4294967295u},
                 {L"u64", 4294967295u}, {L"huge", 4294967295u}, {L"nhuge", 0u},
                 {L"n33", 4294967295u}};
    for (const auto& entry : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(entry.name)));
        EXPECT_EQ(DWORDOf(root_, entry.name), entry.expected);
    }
}

TEST_F(JSONManagerOperationsTest, GetDWORDOfOutOfRangeDoubleIsInt32Min) {
    Load(R"({"big":1e20,"nbig":-1e20,"edge":2147483648.5})");
    EXPECT_EQ(DWORDOf(root_, L"big"), 2147483648u);
    EXPECT_EQ(DWORDOf(root_, L"nbig"), 2147483648u);
    EXPECT_EQ(DWORDOf(root_, L"edge"), 2147483648u);
}

TEST_F(JSONManagerOperationsTest, GetDWORDOfStringNodeReadsItself) {
    Load(R"({"s":"12abc","t":{"s":"99"}})");
    JSONNode* node = Member(L"s");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(DWORDOf(node, L"s"), 12u);
    EXPECT_EQ(DWORDOf(node, L"anything"), 12u);
}

TEST_F(JSONManagerOperationsTest, GetDWORDOfStringRootReadsItself) {
    Load("\"42\"");
    EXPECT_EQ(DWORDOf(nullptr, L"x"), 42u);
}

TEST_F(JSONManagerOperationsTest, GetDWORDOfOtherScalarNodeFindsNoMember) {
    Load(R"({"n":5,"l":[1],"b":true})");
    DWORD value = 77;
    for (const wchar_t* name : {L"n", L"l", L"b"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        EXPECT_EQ(manager_->GetDWORDAttribute(Member(name), name, &value), ZELT_NOT_PRESENT);
    }
    EXPECT_EQ(value, 77u);
}

TEST_F(JSONManagerOperationsTest, GetDWORDReadsWhatWasSet) {
    const DWORD values[] = {0u, 1u, 2147483647u, 2147483648u, 4294967295u};
    for (DWORD value : values) {
        SCOPED_TRACE(value);
        ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"v", value), ZELT_SUCCESS);
        EXPECT_EQ(DWORDOf(root_, L"v"), value);
    }
}

// ---- GetStringAttribute

TEST_F(JSONManagerOperationsTest, GetStringNullNameFails) {
    Load(R"({"s":"abc"})");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 8;
    EXPECT_EQ(manager_->GetStringAttribute(root_, nullptr, buffer.data(), &length),
              ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->GetStringAttribute(nullptr, nullptr, buffer.data(), &length),
              ZELT_BAD_ARGUMENT);
    EXPECT_EQ(length, 8);
    EXPECT_EQ(buffer, std::vector<wchar_t>(8, L'#'));
}

TEST_F(JSONManagerOperationsTest, GetStringNullNodeUsesRoot) {
    Load(R"({"s":"abc","o":{"x":1}})");
    EXPECT_EQ(StringOf(nullptr, L"s"), L"abc");
    EXPECT_EQ(StringOf(nullptr, L"o"), L"{ \"x\": 1 }");
}

TEST_F(JSONManagerOperationsTest, GetStringWithoutDocumentFails) {
    ExportDestroyedManagerPtr empty = NewManager();
    std::vector<wchar_t> buffer(8, L'#');
    int length = 8;
    EXPECT_EQ(empty->GetStringAttribute(nullptr, L"s", buffer.data(), &length), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(length, 8);
}

TEST_F(JSONManagerOperationsTest, GetStringMissingIsNotPresent) {
    Load(R"({"s":"abc","n":null})");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 8;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"t", buffer.data(), &length), ZELT_NOT_PRESENT);
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"n", buffer.data(), &length), ZELT_NOT_PRESENT);
    EXPECT_EQ(length, 8);
    EXPECT_EQ(buffer, std::vector<wchar_t>(8, L'#'));
}

TEST_F(JSONManagerOperationsTest, GetStringBufferTooSmallReportsNeededLength) {
    Load(R"({"s":"abc"})");
    for (int given : {4, 3, 1, 0, -1}) {
        SCOPED_TRACE(given);
        std::vector<wchar_t> buffer(8, L'#');
        int length = given;
        EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length),
                  ZELT_BUFFER_TOO_SMALL);
        EXPECT_EQ(length, 5);
        EXPECT_EQ(buffer, std::vector<wchar_t>(8, L'#'));
    }
}

TEST_F(JSONManagerOperationsTest, GetStringExactBufferOneBeyondTerminator) {
    Load(R"({"s":"abc"})");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 5;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(length, 5);
    // Text and terminator are written; the extra unit is not touched.
    EXPECT_EQ(std::wstring(buffer.data(), 8), std::wstring(L"abc\0####", 8));
}

TEST_F(JSONManagerOperationsTest, GetStringLargerBufferSetsNeededLength) {
    Load(R"({"s":"abc"})");
    std::vector<wchar_t> buffer(100, L'#');
    int length = 100;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(length, 5);
    EXPECT_EQ(std::wstring(buffer.data()), L"abc");
}

TEST_F(JSONManagerOperationsTest, GetStringEmptyStringNeedsTwo) {
    Load(R"({"s":""})");
    std::vector<wchar_t> buffer(4, L'#');
    int length = 1;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(buffer[0], L'\0');
}

TEST_F(JSONManagerOperationsTest, GetStringTwoByteCharacterIsOneUnit) {
    Load("{\"s\":\"\xC3\xA9\"}");
    std::vector<wchar_t> buffer(4, L'#');
    int length = 2;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 3);
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(length, 3);
    EXPECT_EQ(std::wstring(buffer.data(), 3), std::wstring(L"\u00E9\0#", 3));
}

TEST_F(JSONManagerOperationsTest, GetStringNonBmpCharacterIsOneUnit) {
    if (kWideTextIsUtf16) {
        GTEST_SKIP() << "a code point above U+FFFF is a surrogate pair of two UTF-16 units here "
                        "(WindowsPlatformTest)";
    }
    Load("{\"s\":\"\xF0\x9F\x98\x80\",\"e\":\"\\ud83d\\ude00\"}");
    for (const wchar_t* name : {L"s", L"e"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        std::vector<wchar_t> buffer(4, L'#');
        int length = 2;
        EXPECT_EQ(manager_->GetStringAttribute(root_, name, buffer.data(), &length),
                  ZELT_BUFFER_TOO_SMALL);
        EXPECT_EQ(length, 3);
        EXPECT_EQ(manager_->GetStringAttribute(root_, name, buffer.data(), &length), ZELT_SUCCESS);
        EXPECT_EQ(length, 3);
        EXPECT_EQ(buffer[0], static_cast<wchar_t>(0x1F600));
        EXPECT_EQ(buffer[1], L'\0');
    }
}

TEST_F(JSONManagerOperationsTest, GetStringMixedWidthsCountCodePoints) {
    Load("{\"s\":\"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\"}");
    // Four code points: five UTF-16 units on Windows.
    const int needed = static_cast<int>(std::wstring(L"a\u00E9\u20AC\U0001F600").size()) + 2;
    std::vector<wchar_t> buffer(8, L'#');
    int length = needed - 1;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, needed);
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(std::wstring(buffer.data()), L"a\u00E9\u20AC\U0001F600");
}

TEST_F(JSONManagerOperationsTest, GetStringInvalidUtf8BecomesReplacementCharacter) {
    Load("{\"s\":\"x\xFFy\",\"c\":\"\x80\"}");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 4;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 5);
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(std::wstring(buffer.data()), L"x\uFFFDy");
    EXPECT_EQ(StringOf(root_, L"c"), L"\uFFFD");
}

TEST_F(JSONManagerOperationsTest, GetStringCutShortSequenceIsOneReplacementCharacter) {
    // Each sequence broken off before its last byte counts as one invalid
    // sequence; the byte that broke it starts the next one.
    Load(
        "{\"two\":\"a\xC3z\",\"three\":\"\xE2\x82z\",\"four\":\"\xF0\x9F\x98z\","
        "\"end\":\"ab\xC3\",\"lead\":\"\xE2\xE2\x82\xAC\"}");
    EXPECT_EQ(StringOf(root_, L"two"), L"a\uFFFDz");
    EXPECT_EQ(StringOf(root_, L"three"), L"\uFFFDz");
    EXPECT_EQ(StringOf(root_, L"four"), L"\uFFFDz");
    EXPECT_EQ(StringOf(root_, L"end"), L"ab\uFFFD");
    EXPECT_EQ(StringOf(root_, L"lead"), L"\uFFFD\u20AC");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 3;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"three", buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 4);
}

TEST_F(JSONManagerOperationsTest, GetStringRefusesOverlongSurrogateAndOutOfRangeSequences) {
    // The second byte after E0, ED, F0 and F4 has a narrower range: below it
    // (or above it) the sequence is invalid and gives only U+FFFD.
    Load(
        "{\"e0\":\"\xE0\x9F\xBF\",\"e0ok\":\"\xE0\xA0\x80\",\"ed\":\"\xED\xA0\x80\","
        "\"edok\":\"\xED\x9F\xBF\",\"f0\":\"\xF0\x8F\xBF\xBF\",\"f0ok\":\"\xF0\x90\x80\x80\","
        "\"f4\":\"\xF4\x90\x80\x80\",\"f4ok\":\"\xF4\x8F\xBF\xBF\"}");
    EXPECT_EQ(StringOf(root_, L"e0ok"), L"\u0800");
    EXPECT_EQ(StringOf(root_, L"edok"), L"\uD7FF");
    EXPECT_EQ(StringOf(root_, L"f0ok"), L"\U00010000");
    EXPECT_EQ(StringOf(root_, L"f4ok"), L"\U0010FFFF");
#if defined(_WIN32)
    // The system conversion decides how many replacement characters an
    // invalid sequence gives.
    for (const wchar_t* key : {L"e0", L"ed", L"f0", L"f4"}) {
        const std::wstring text = StringOf(root_, key);
        EXPECT_FALSE(text.empty()) << key;
        EXPECT_EQ(text.find_first_not_of(L'\uFFFD'), std::wstring::npos) << key;
    }
#else
    // The lead byte alone is one invalid sequence; each byte after it is another.
    EXPECT_EQ(StringOf(root_, L"e0"), L"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(StringOf(root_, L"ed"), L"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(StringOf(root_, L"f0"), L"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(StringOf(root_, L"f4"), L"\uFFFD\uFFFD\uFFFD\uFFFD");
#endif
}

TEST_F(JSONManagerOperationsTest, GetStringReturnsRawCharacters) {
    Load(R"({"s":"x\/y\"z\\w\n"})");
    EXPECT_EQ(StringOf(root_, L"s"), L"x/y\"z\\w\n");
}

TEST_F(JSONManagerOperationsTest, GetStringStopsAtEmbeddedZero) {
    Load(R"({"s":"a\u0000b"})");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 8;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(length, 3);
    EXPECT_EQ(std::wstring(buffer.data()), L"a");
}

TEST_F(JSONManagerOperationsTest, GetStringOfIntegerIsItsText) {
    Load(R"({"i":42,"n":-5})");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 3;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"i", buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 4);
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"i", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(std::wstring(buffer.data()), L"42");
    EXPECT_EQ(StringOf(root_, L"n"), L"-5");
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"max", 4294967295u), ZELT_SUCCESS);
    EXPECT_EQ(StringOf(root_, L"max"), L"-1");
}

TEST_F(JSONManagerOperationsTest, GetStringOfOtherKindsIsTheirSavedText) {
    Load(R"({"t":true,"f":false,"d":1.5,"o":{"x":1,"y":[1,2],"p":"a/b"},"e":{},"a":[]})");
    EXPECT_EQ(StringOf(root_, L"t"), L"true");
    EXPECT_EQ(StringOf(root_, L"f"), L"false");
    EXPECT_EQ(StringOf(root_, L"d"), L"1.500000");
    EXPECT_EQ(StringOf(root_, L"o"), L"{ \"x\": 1, \"y\": [ 1, 2 ], \"p\": \"a\\/b\" }");
    EXPECT_EQ(StringOf(root_, L"e"), L"{ }");
    EXPECT_EQ(StringOf(root_, L"a"), L"[ ]");
    std::vector<wchar_t> buffer(4, L'#');
    int length = 4;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"e", buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 5);
}

TEST_F(JSONManagerOperationsTest, GetStringOfStringNodeReadsItself) {
    Load(R"({"s":"self","o":{"s":"member"}})");
    JSONNode* node = Member(L"s");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(StringOf(node, L"anything"), L"self");
    EXPECT_EQ(StringOf(node, L"s"), L"self");
}

TEST_F(JSONManagerOperationsTest, GetStringOfStringRoot) {
    Load("\"abc\"");
    EXPECT_EQ(StringOf(nullptr, L"x"), L"abc");
}

TEST_F(JSONManagerOperationsTest, GetStringOfScalarNodeFindsNoMember) {
    Load(R"({"n":5,"l":["a"]})");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 8;
    EXPECT_EQ(manager_->GetStringAttribute(Member(L"n"), L"n", buffer.data(), &length),
              ZELT_NOT_PRESENT);
    EXPECT_EQ(manager_->GetStringAttribute(Member(L"l"), L"l", buffer.data(), &length),
              ZELT_NOT_PRESENT);
    EXPECT_EQ(length, 8);
}

TEST_F(JSONManagerOperationsTest, GetString1023CharactersNeeds1025) {
    const std::wstring value(1023, L'v');
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"s", value.c_str()), ZELT_SUCCESS);
    std::vector<wchar_t> buffer(1025, L'#');
    int length = 1024;
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 1025);
    EXPECT_EQ(manager_->GetStringAttribute(root_, L"s", buffer.data(), &length), ZELT_SUCCESS);
    EXPECT_EQ(length, 1025);
    EXPECT_EQ(std::wstring(buffer.data()), value);
    EXPECT_EQ(buffer[1024], L'#');
}

// ---- GetArrayStringAttribute

TEST_F(JSONManagerOperationsTest, GetArrayStringNullNameFails) {
    Load(R"(["a"])");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 8;
    EXPECT_EQ(manager_->GetArrayStringAttribute(root_, nullptr, 0, buffer.data(), &length),
              ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->GetArrayStringAttribute(nullptr, nullptr, 0, buffer.data(), &length),
              ZELT_BAD_ARGUMENT);
    EXPECT_EQ(length, 8);
}

TEST_F(JSONManagerOperationsTest, GetArrayStringNullArrayUsesRoot) {
    Load(R"(["a","b"])");
    const StringRead read = ReadArrayString(*manager_, nullptr, L"list", 1);
    EXPECT_EQ(read.result, ZELT_SUCCESS);
    EXPECT_EQ(read.text, L"b");
}

TEST_F(JSONManagerOperationsTest, GetArrayStringWithoutDocumentFails) {
    ExportDestroyedManagerPtr empty = NewManager();
    std::vector<wchar_t> buffer(8, L'#');
    int length = 8;
    EXPECT_EQ(empty->GetArrayStringAttribute(nullptr, L"l", 0, buffer.data(), &length),
              ZELT_BAD_ARGUMENT);
}

TEST_F(JSONManagerOperationsTest, GetArrayStringOfNonArrayIsNotPresent) {
    Load(R"({"s":"abc","o":{"0":"x"}})");
    for (JSONNode* node : {root_, Member(L"s"), Member(L"o")}) {
        EXPECT_EQ(ReadArrayString(*manager_, node, L"s", 0).result, ZELT_NOT_PRESENT);
    }
    EXPECT_EQ(ReadArrayString(*manager_, nullptr, L"s", 0).result, ZELT_NOT_PRESENT);
}

TEST_F(JSONManagerOperationsTest, GetArrayStringIndexOutOfRangeIsNotPresent) {
    Load(R"({"l":["a","b"]})");
    JSONNode* list = Member(L"l");
    for (int index : {2, 3, INT_MAX, -1, INT_MIN}) {
        SCOPED_TRACE(index);
        std::vector<wchar_t> buffer(8, L'#');
        int length = 8;
        EXPECT_EQ(manager_->GetArrayStringAttribute(list, L"l", index, buffer.data(), &length),
                  ZELT_NOT_PRESENT);
        EXPECT_EQ(length, 8);
        EXPECT_EQ(buffer, std::vector<wchar_t>(8, L'#'));
    }
}

TEST_F(JSONManagerOperationsTest, GetArrayStringOfJsonNullItemIsNotPresent) {
    Load(R"(["a",null])");
    EXPECT_EQ(ReadArrayString(*manager_, root_, L"l", 1).result, ZELT_NOT_PRESENT);
}

TEST_F(JSONManagerOperationsTest, GetArrayStringBufferProtocol) {
    Load(R"({"l":["abc"]})");
    JSONNode* list = Member(L"l");
    std::vector<wchar_t> buffer(8, L'#');
    int length = 4;
    EXPECT_EQ(manager_->GetArrayStringAttribute(list, L"l", 0, buffer.data(), &length),
              ZELT_BUFFER_TOO_SMALL);
    EXPECT_EQ(length, 5);
    EXPECT_EQ(buffer, std::vector<wchar_t>(8, L'#'));
    EXPECT_EQ(manager_->GetArrayStringAttribute(list, L"l", 0, buffer.data(), &length),
              ZELT_SUCCESS);
    EXPECT_EQ(length, 5);
    EXPECT_EQ(std::wstring(buffer.data(), 8), std::wstring(L"abc\0####", 8));
}

TEST_F(JSONManagerOperationsTest, GetArrayStringOfOtherKindsIsTheirText) {
    Load(R"({"l":[7,true,1.5,{"a":1},[],"\u00e9\ud83d\ude00"]})");
    JSONNode* list = Member(L"l");
    const wchar_t* expected[] = {
        L"7", L"true", L"1.500000", L"{ \"a\": 1 }", L"[ ]", L"\u00E9\U0001F600"};
    for (int index = 0; index < 6; ++index) {
        SCOPED_TRACE(index);
        const StringRead read = ReadArrayString(*manager_, list, L"l", index);
        EXPECT_EQ(read.result, ZELT_SUCCESS);
        EXPECT_EQ(read.text, expected[index]);
    }
}

TEST_F(JSONManagerOperationsTest, GetArrayStringDoesNotUseName) {
    Load(R"({"l":["x","y"]})");
    JSONNode* list = Member(L"l");
    EXPECT_EQ(ReadArrayString(*manager_, list, L"other", 1).text, L"y");
    EXPECT_EQ(ReadArrayString(*manager_, list, L"", 0).text, L"x");
}

// ---- GetArrayCount

TEST_F(JSONManagerOperationsTest, GetArrayCountNullArrayFails) {
    Load(R"([1,2])");
    EXPECT_EQ(manager_->GetArrayCount(nullptr, L"l"), ZELT_FAILED);
    EXPECT_EQ(manager_->GetArrayCount(nullptr, nullptr), ZELT_FAILED);
    ExportDestroyedManagerPtr empty = NewManager();
    EXPECT_EQ(empty->GetArrayCount(nullptr, L"l"), ZELT_FAILED);
}

TEST_F(JSONManagerOperationsTest, GetArrayCountOfNonArrayIsTwo) {
    Load(R"({"s":"abc","n":5,"o":{"a":1,"b":2,"c":3}})");
    EXPECT_EQ(manager_->GetArrayCount(root_, L"x"), ZELT_NOT_PRESENT);
    for (const wchar_t* name : {L"s", L"n", L"o"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        EXPECT_EQ(manager_->GetArrayCount(Member(name), name), ZELT_NOT_PRESENT);
    }
}

TEST_F(JSONManagerOperationsTest, GetArrayCountCountsItems) {
    Load(R"({"e":[],"one":[null],"two":[1,2],"three":["a",{},[]]})");
    EXPECT_EQ(manager_->GetArrayCount(Member(L"e"), L"e"), 0);
    EXPECT_EQ(manager_->GetArrayCount(Member(L"one"), L"one"), 1);
    EXPECT_EQ(manager_->GetArrayCount(Member(L"two"), nullptr), 2);
    EXPECT_EQ(manager_->GetArrayCount(Member(L"three"), L"unrelated"), 3);
}

TEST_F(JSONManagerOperationsTest, GetArrayCountOfManyItems) {
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    for (DWORD i = 0; i < 1000; ++i) {
        ASSERT_EQ(manager_->SetDWORDAttribute(list, L"l", i), ZELT_SUCCESS);
    }
    EXPECT_EQ(manager_->GetArrayCount(list, L"l"), 1000);
    EXPECT_EQ(ReadArrayString(*manager_, list, L"l", 999).text, L"999");
    EXPECT_EQ(manager_->GetArrayElement(list, L"l", 1000), nullptr);
}

// ---- RemoveElement

TEST_F(JSONManagerOperationsTest, RemoveElementNullParentFails) {
    Load(R"({"a":1})");
    EXPECT_EQ(manager_->RemoveElement(nullptr, L"a"), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(Saved(), "{ \"a\": 1 }");
}

TEST_F(JSONManagerOperationsTest, RemoveElementNullNameFails) {
    Load(R"({"a":1})");
    EXPECT_EQ(manager_->RemoveElement(root_, nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->RemoveElement(nullptr, nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(Saved(), "{ \"a\": 1 }");
}

TEST_F(JSONManagerOperationsTest, RemoveElementMissingIsNotPresent) {
    Load(R"({"a":1})");
    EXPECT_EQ(manager_->RemoveElement(root_, L"b"), ZELT_NOT_PRESENT);
    EXPECT_EQ(manager_->RemoveElement(root_, L"A"), ZELT_NOT_PRESENT);
    EXPECT_EQ(Saved(), "{ \"a\": 1 }");
}

TEST_F(JSONManagerOperationsTest, RemoveElementPresentThenAgain) {
    Load(R"({"a":1,"b":{"c":[1,2,{"d":"e"}]},"f":"g"})");
    EXPECT_EQ(manager_->RemoveElement(root_, L"b"), ZELT_SUCCESS);
    EXPECT_EQ(Member(L"b"), nullptr);
    EXPECT_EQ(Saved(), "{ \"a\": 1, \"f\": \"g\" }");
    EXPECT_EQ(manager_->RemoveElement(root_, L"b"), ZELT_NOT_PRESENT);
    EXPECT_EQ(manager_->RemoveElement(root_, L"a"), ZELT_SUCCESS);
    EXPECT_EQ(manager_->RemoveElement(root_, L"f"), ZELT_SUCCESS);
    EXPECT_EQ(Saved(), "{ }");
}

TEST_F(JSONManagerOperationsTest, RemoveElementFromNestedObject) {
    Load(R"({"o":{"x":1,"y":2}})");
    EXPECT_EQ(manager_->RemoveElement(Member(L"o"), L"x"), ZELT_SUCCESS);
    EXPECT_EQ(manager_->RemoveElement(root_, L"x"), ZELT_NOT_PRESENT);
    EXPECT_EQ(Saved(), "{ \"o\": { \"y\": 2 } }");
}

TEST_F(JSONManagerOperationsTest, RemoveElementFromNonObjectIsNotPresent) {
    Load(R"({"l":[1,2],"s":"abc","n":3})");
    for (const wchar_t* name : {L"l", L"s", L"n"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        EXPECT_EQ(manager_->RemoveElement(Member(name), L"0"), ZELT_NOT_PRESENT);
    }
    EXPECT_EQ(Saved(), "{ \"l\": [ 1, 2 ], \"s\": \"abc\", \"n\": 3 }");
}

TEST_F(JSONManagerOperationsTest, RemoveElementLeavesJsonNullMember) {
    Load(R"({"n":null,"a":1})");
    EXPECT_EQ(manager_->RemoveElement(root_, L"n"), ZELT_NOT_PRESENT);
    EXPECT_EQ(Saved(), "{ \"n\": null, \"a\": 1 }");
}

TEST_F(JSONManagerOperationsTest, RemoveElementNameOf1023BytesFits) {
    const std::wstring names[] = {std::wstring(1023, L'k'), Repeated(L'\u00E9', 511) + L"a",
                                  Repeated(CodePoint(0x1F600), 255) + L"abc"};
    for (const std::wstring& name : names) {
        SCOPED_TRACE(name.size());
        ASSERT_EQ(manager_->SetDWORDAttribute(root_, name.c_str(), 1), ZELT_SUCCESS);
        EXPECT_EQ(manager_->RemoveElement(root_, name.c_str()), ZELT_SUCCESS);
    }
    EXPECT_EQ(Saved(), "{ }");
}

TEST_F(JSONManagerOperationsTest, RemoveElementNameOf1024BytesFails) {
    const std::wstring names[] = {std::wstring(1024, L'k'), Repeated(L'\u00E9', 512),
                                  Repeated(L'\u20AC', 341) + L"a",
                                  Repeated(CodePoint(0x1F600), 256)};
    for (const std::wstring& name : names) {
        ASSERT_EQ(manager_->SetDWORDAttribute(root_, name.c_str(), 1), ZELT_SUCCESS);
    }
    const std::string before = Saved();
    for (const std::wstring& name : names) {
        SCOPED_TRACE(name.size());
        EXPECT_EQ(manager_->RemoveElement(root_, name.c_str()), ZELT_BAD_ARGUMENT);
    }
    EXPECT_EQ(Saved(), before);
}

// ---- Virtual slot order

TEST(JSONManagerSlotOrderTest, OperationsOccupyTheirVirtualSlots) {
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::ClearDocument), 1);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::CreateNewDocument), 2);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::ImportFromJSONFile), 3);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::ImportFromJSONString), 4);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::SaveToJSONFile), 5);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::GetRootElement), 6);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::AddElement), 7);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::GetElement), 8);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::GetArrayElement), 9);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::SetDWORDAttribute), 10);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::SetStringAttribute), 11);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::GetDWORDAttribute), 12);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::GetStringAttribute), 13);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::GetArrayStringAttribute), 14);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::GetArrayCount), 15);
    EXPECT_EQ(VirtualSlotOf(&IJSONManager::RemoveElement), 16);
}

// The pointer holds one plus the byte offset of the virtual table entry; the
// destructor's two entries come first.
TEST(JSONManagerSlotOrderTest, PointerHoldsOnePlusByteOffset) {
    EXPECT_EQ(BitsOf(&IJSONManager::ClearDocument).pointer, 1u + 2 * sizeof(void*));
    EXPECT_EQ(BitsOf(&IJSONManager::RemoveElement).pointer, 1u + 17 * sizeof(void*));
}

}  // namespace

// The type codes are part of the binary contract: callers built against any
// release pass these numbers.
TEST(JSONManagerTypeCodeTest, AddElementTypeCodesKeepTheirNumbers) {
    EXPECT_EQ(ZELT_ADD_OBJECT, 0);
    EXPECT_EQ(ZELT_ADD_ARRAY, 1);
    EXPECT_EQ(ZELT_ADD_ARRAY_ALTERNATIVE, 2);
    EXPECT_EQ(ZELT_ADD_PARENT_FOR_STRING, 3);
    EXPECT_EQ(ZELT_ADD_PARENT_FOR_DWORD, 4);
}

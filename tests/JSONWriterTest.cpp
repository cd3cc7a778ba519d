// JSONWriterTest.cpp: the exact bytes a saved document holds: the one-line
// spaced layout, the escapes, numbers, literals and member order.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <string>

#include "support/LogCapture.h"
#include "support/ManagerTesting.h"

namespace {

// How the writer escapes one byte of a string or key: the seven short
// escapes, every other byte below 0x20 as \u00xx in lowercase hexadecimal,
// everything else (UTF-8 sequences included) as it is.
std::string EscapedByte(unsigned char byte) {
    switch (byte) {
        case '\b':
            return "\\b";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '/':
            return "\\/";
        default:
            break;
    }
    if (byte >= 0x20) return std::string(1, static_cast<char>(byte));
    const char* digits = "0123456789abcdef";
    return std::string("\\u00") + digits[byte >> 4] + digits[byte & 0xF];
}

std::string Escaped(const std::string& bytes) {
    std::string result;
    for (char byte : bytes) result += EscapedByte(static_cast<unsigned char>(byte));
    return result;
}

// The bytes 0x01 to 0x1f, in order.
std::string ControlBytes() {
    std::string bytes;
    for (int byte = 0x01; byte < 0x20; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

std::wstring Widened(const std::string& asciiBytes) {
    return std::wstring(asciiBytes.begin(), asciiBytes.end());
}

class JSONWriterTest : public ::testing::Test {
protected:
    void SetUp() override {
        ClearCapturedLogs();
        manager_ = NewManager();
        ASSERT_EQ(manager_->CreateNewDocument(), ZELT_SUCCESS);
        root_ = manager_->GetRootElement();
    }
    void TearDown() override { EXPECT_TRUE(CapturedLogs().empty()); }

    // The saved text of the document parsed from text.
    std::string SavedFrom(const std::string& text) {
        ExportDestroyedManagerPtr manager = ManagerWithText(text);
        return SavedText(*manager);
    }

    ExportDestroyedManagerPtr manager_;
    JSONNode* root_ = nullptr;
};

TEST_F(JSONWriterTest, EmptyObject) { EXPECT_EQ(SavedText(*manager_), "{ }"); }

TEST_F(JSONWriterTest, EmptyArray) { EXPECT_EQ(SavedFrom("[]"), "[ ]"); }

TEST_F(JSONWriterTest, ExampleLineBuiltWithOperations) {
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"a", 1), ZELT_SUCCESS);
    JSONNode* list = manager_->AddElement(root_, L"b", ZELT_ADD_ARRAY);
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(manager_->SetDWORDAttribute(list, L"b", 1), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(list, L"b", 2), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"c", L"x/y"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager_), R"({ "a": 1, "b": [ 1, 2 ], "c": "x\/y" })");
}

TEST_F(JSONWriterTest, ExampleLineFromImportedText) {
    EXPECT_EQ(SavedFrom(R"({"a":1,"b":[1,2],"c":"x/y"})"),
              R"({ "a": 1, "b": [ 1, 2 ], "c": "x\/y" })");
}

TEST_F(JSONWriterTest, OneLineWithoutFinalNewline) {
    EXPECT_EQ(SavedFrom("{\n  \"a\" : [\n 1 ,\n 2\n ]\n}\n"), "{ \"a\": [ 1, 2 ] }");
}

TEST_F(JSONWriterTest, NestedArraysAndObjects) {
    EXPECT_EQ(
        SavedFrom(R"({"a":{"b":[[],{},[1,[2,{"c":[]}]]]},"d":[{"e":{}}]})"),
        R"({ "a": { "b": [ [ ], { }, [ 1, [ 2, { "c": [ ] } ] ] ] }, "d": [ { "e": { } } ] })");
}

TEST_F(JSONWriterTest, NestedBuiltWithOperations) {
    JSONNode* outer = manager_->AddElement(root_, L"outer", ZELT_ADD_OBJECT);
    JSONNode* list = manager_->AddElement(outer, L"list", ZELT_ADD_ARRAY_ALTERNATIVE);
    JSONNode* item = manager_->AddElement(list, L"", ZELT_ADD_OBJECT);
    ASSERT_NE(item, nullptr);
    ASSERT_EQ(manager_->SetStringAttribute(item, L"k", L"v"), ZELT_SUCCESS);
    ASSERT_NE(manager_->AddElement(item, L"empty", ZELT_ADD_ARRAY), nullptr);
    ASSERT_NE(manager_->AddElement(list, L"", ZELT_ADD_OBJECT), nullptr);
    ASSERT_EQ(manager_->SetDWORDAttribute(outer, L"n", 3), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager_),
              R"({ "outer": { "list": [ { "k": "v", "empty": [ ] }, { } ], "n": 3 } })");
}

TEST_F(JSONWriterTest, ThirtyTwoNestedArrays) {
    std::string text;
    std::string expected;
    for (int level = 0; level < 32; ++level) {
        text = "[" + text + "]";
        expected = (level == 0) ? "[ ]" : "[ " + expected + " ]";
    }
    EXPECT_EQ(SavedFrom(text), expected);
}

TEST_F(JSONWriterTest, MembersInInsertionOrder) {
    for (const wchar_t* name : {L"z", L"a", L"m", L"b"}) {
        ASSERT_EQ(manager_->SetStringAttribute(root_, name, name), ZELT_SUCCESS);
    }
    EXPECT_EQ(SavedText(*manager_), R"({ "z": "z", "a": "a", "m": "m", "b": "b" })");
}

TEST_F(JSONWriterTest, MemberSetAgainMovesLast) {
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"a", 1), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"b", 2), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, L"a", 3), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager_), R"({ "b": 2, "a": 3 })");
}

TEST_F(JSONWriterTest, EveryControlByteInString) {
    const std::string bytes = ControlBytes();
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"s", Widened(bytes).c_str()), ZELT_SUCCESS);
    const std::string expected =
        R"({ "s": "\u0001\u0002\u0003\u0004\u0005\u0006\u0007\b\t\n\u000b\u000c\r\u000e\u000f)"
        R"(\u0010\u0011\u0012\u0013\u0014\u0015\u0016\u0017\u0018\u0019\u001a\u001b\u001c\u001d)"
        R"(\u001e\u001f" })";
    EXPECT_EQ(Escaped(bytes), expected.substr(8, expected.size() - 11));
    EXPECT_EQ(SavedText(*manager_), expected);
}

TEST_F(JSONWriterTest, EveryControlByteImportedFromEscapes) {
    std::string text = "[\"";
    for (int byte = 0x01; byte < 0x20; ++byte) {
        const char* digits = "0123456789abcdef";
        text += std::string("\\u00") + digits[byte >> 4] + digits[byte & 0xF];
    }
    text += "\"]";
    EXPECT_EQ(SavedFrom(text), "[ \"" + Escaped(ControlBytes()) + "\" ]");
}

TEST_F(JSONWriterTest, EachControlByteAlone) {
    for (int byte = 0x01; byte < 0x20; ++byte) {
        SCOPED_TRACE(byte);
        ASSERT_EQ(manager_->CreateNewDocument(), ZELT_SUCCESS);
        const std::wstring value(1, static_cast<wchar_t>(byte));
        ASSERT_EQ(manager_->SetStringAttribute(manager_->GetRootElement(), L"s", value.c_str()),
                  ZELT_SUCCESS);
        EXPECT_EQ(SavedText(*manager_),
                  "{ \"s\": \"" + EscapedByte(static_cast<unsigned char>(byte)) + "\" }");
    }
}

TEST_F(JSONWriterTest, FormFeedIsWrittenAsUnicodeEscape) {
    EXPECT_EQ(SavedFrom(R"(["\f","\u000b","\u001f"])"), R"([ "\u000c", "\u000b", "\u001f" ])");
}

TEST_F(JSONWriterTest, ShortEscapes) {
    EXPECT_EQ(SavedFrom(R"(["\b\t\n\r\"\\\/"])"), R"([ "\b\t\n\r\"\\\/" ])");
}

TEST_F(JSONWriterTest, QuoteBackslashAndSlash) {
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"q", L"say \"hi\""), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"b", L"C:\\dir\\"), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"s", L"http://host/path"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager_),
              R"({ "q": "say \"hi\"", "b": "C:\\dir\\", "s": "http:\/\/host\/path" })");
}

TEST_F(JSONWriterTest, PrintableAsciiCopiedExceptQuoteBackslashSlash) {
    std::string bytes;
    for (int byte = 0x20; byte < 0x80; ++byte) bytes += static_cast<char>(byte);
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"p", Widened(bytes).c_str()), ZELT_SUCCESS);
    std::string expected;
    for (char byte : bytes) {
        if (byte == '"' || byte == '\\' || byte == '/') expected += '\\';
        expected += byte;
    }
    EXPECT_EQ(SavedText(*manager_), "{ \"p\": \"" + expected + "\" }");
}

TEST_F(JSONWriterTest, Utf8CopiedAsItIs) {
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"\u00E9", L"\u00E9\u20AC\U0001F600\u2028"),
              ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager_),
              "{ \"\xC3\xA9\": \"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xE2\x80\xA8\" }");
}

TEST_F(JSONWriterTest, UnicodeEscapesImportedAreWrittenAsUtf8) {
    EXPECT_EQ(SavedFrom(R"(["\u00e9\u20ac\ud83d\ude00\u007f"])"),
              "[ \"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\x7f\" ]");
}

TEST_F(JSONWriterTest, InvalidUtf8CopiedAsItIs) {
    EXPECT_EQ(SavedFrom("[\"a\xFF\x80z\"]"), "[ \"a\xFF\x80z\" ]");
}

TEST_F(JSONWriterTest, KeysAreEscapedLikeStrings) {
    const std::wstring key = L"a\"b\\c/d\te" + std::wstring(1, static_cast<wchar_t>(0x01));
    ASSERT_EQ(manager_->SetDWORDAttribute(root_, key.c_str(), 1), ZELT_SUCCESS);
    ASSERT_NE(manager_->AddElement(root_, Widened(ControlBytes()).c_str(), ZELT_ADD_OBJECT),
              nullptr);
    EXPECT_EQ(SavedText(*manager_),
              R"({ "a\"b\\c\/d\te\u0001": 1, ")" + Escaped(ControlBytes()) + R"(": { } })");
}

TEST_F(JSONWriterTest, StringEndsAtFirstZeroByte) {
    EXPECT_EQ(SavedFrom(R"({"s":"a\u0000b","t":"\u0000","u":"x"})"),
              R"({ "s": "a", "t": "", "u": "x" })");
    EXPECT_EQ(SavedFrom(R"(["x\u0000y"])"), R"([ "x" ])");
}

TEST_F(JSONWriterTest, EmptyStringAndEmptyKey) {
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"", L""), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager_), R"({ "": "" })");
}

TEST_F(JSONWriterTest, Booleans) {
    EXPECT_EQ(SavedFrom(R"({"t":true,"f":false,"l":[true,false]})"),
              R"({ "t": true, "f": false, "l": [ true, false ] })");
}

TEST_F(JSONWriterTest, Nulls) {
    EXPECT_EQ(SavedFrom(R"({"n":null,"l":[null,1,null]})"),
              R"({ "n": null, "l": [ null, 1, null ] })");
}

TEST_F(JSONWriterTest, DoublesWithSixDecimals) {
    EXPECT_EQ(SavedFrom("[1.5,-0.25,0.1,2.0,1e-7,123456789.125,-0.0,1e20]"),
              "[ 1.500000, -0.250000, 0.100000, 2.000000, 0.000000, 123456789.125000, "
              "-0.000000, 100000000000000000000.000000 ]");
}

TEST_F(JSONWriterTest, InfiniteDoublesWrittenAsInf) {
    EXPECT_EQ(SavedFrom("[Infinity,-Infinity,1e400]"), "[ inf, -inf, inf ]");
}

TEST_F(JSONWriterTest, Integers) {
    EXPECT_EQ(SavedFrom("[0,-0,7,-5,2147483647,-2147483648]"),
              "[ 0, 0, 7, -5, 2147483647, -2147483648 ]");
}

TEST_F(JSONWriterTest, IntegersWrittenAsSigned32Bit) {
    EXPECT_EQ(SavedFrom("[4294967295,2147483648,4294967296,4294967297,-4294967297]"),
              "[ -1, -2147483648, 0, 1, -1 ]");
    EXPECT_EQ(SavedFrom("[9223372036854775807,9223372036854775808,99999999999999999999,"
                        "-99999999999999999999]"),
              "[ -1, -1, -1, 0 ]");
}

TEST_F(JSONWriterTest, DWORDValuesWrittenAsSigned32Bit) {
    JSONNode* list = manager_->AddElement(root_, L"l", ZELT_ADD_ARRAY);
    for (DWORD value : {0u, 1u, 2147483647u, 2147483648u, 4294967295u}) {
        ASSERT_EQ(manager_->SetDWORDAttribute(list, L"l", value), ZELT_SUCCESS);
    }
    EXPECT_EQ(SavedText(*manager_), "{ \"l\": [ 0, 1, 2147483647, -2147483648, -1 ] }");
}

TEST_F(JSONWriterTest, MixedArray) {
    EXPECT_EQ(SavedFrom(R"([1,"a",true,null,1.5,{},[],{"k":"v"}])"),
              R"([ 1, "a", true, null, 1.500000, { }, [ ], { "k": "v" } ])");
}

TEST_F(JSONWriterTest, ScalarRoots) {
    EXPECT_EQ(SavedFrom("-5"), "-5");
    EXPECT_EQ(SavedFrom("4294967295"), "-1");
    EXPECT_EQ(SavedFrom("1.5"), "1.500000");
    EXPECT_EQ(SavedFrom("true"), "true");
    EXPECT_EQ(SavedFrom("false"), "false");
}

TEST_F(JSONWriterTest, StringRootIsBare) {
    EXPECT_EQ(SavedFrom("\"abc\""), "abc");
    EXPECT_EQ(SavedFrom(R"("x/y\"\u0001")"), "x/y\"\x01");
}

TEST_F(JSONWriterTest, ManyMembersInOrder) {
    std::string expected = "{";
    for (DWORD i = 0; i < 2000; ++i) {
        const std::wstring name = L"m" + std::to_wstring(i);
        ASSERT_EQ(manager_->SetDWORDAttribute(root_, name.c_str(), i), ZELT_SUCCESS);
        expected += (i == 0 ? " \"m" : ", \"m") + std::to_string(i) + "\": " + std::to_string(i);
    }
    expected += " }";
    EXPECT_EQ(SavedText(*manager_), expected);
}

TEST_F(JSONWriterTest, SavedTextImportsToTheSameText) {
    const std::string saved =
        SavedFrom(R"({"a":[1,-2,{"b":"\t\/\"\\\u0001\u00e9"}],"c":{"d":[[]],"e":1.25},"f":null})");
    EXPECT_EQ(saved,
              "{ \"a\": [ 1, -2, { \"b\": \"\\t\\/\\\"\\\\\\u0001\xC3\xA9\" } ], "
              "\"c\": { \"d\": [ [ ] ], \"e\": 1.250000 }, \"f\": null }");
    EXPECT_EQ(SavedFrom(saved), saved);
}

}  // namespace

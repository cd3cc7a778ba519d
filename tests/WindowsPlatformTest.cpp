// WindowsPlatformTest.cpp: what zelt.dll's Windows platform layer adds: wide
// text as UTF-16 with surrogate pairs, lone surrogates, the share-mode probe
// against a file that another handle holds open, paths beyond ASCII, the
// logging sink imported from PLXR.dll, and the DLL's version resource.
#include <zelt/zelt.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/LogCapture.h"
#include "support/ManagerTesting.h"
#include "support/TempFile.h"

namespace {

// U+FFFD as UTF-8, what a lone surrogate becomes.
const char kReplacementUtf8[] = "\xEF\xBF\xBD";

const LogRecord kOpenFailedRecord{L"JSONManager", L"CJSONManager::ImportFromJSONFile", 96, 3,
                                  L"Failed to open file."};

class WindowsPlatformTest : public ::testing::Test {
protected:
    void SetUp() override {
        ClearCapturedLogs();
        manager_ = NewManager();
        ASSERT_NE(manager_, nullptr);
        ASSERT_EQ(manager_->CreateNewDocument(), ZELT_SUCCESS);
        root_ = manager_->GetRootElement();
    }

    // The folder as a Windows path, with backslashes.
    std::wstring Folder() const {
        return std::filesystem::u8path(dir_.Path()).make_preferred().wstring();
    }

    TempDir dir_;
    ExportDestroyedManagerPtr manager_;
    JSONNode* root_ = nullptr;
};

// ---- UTF-16 text

TEST_F(WindowsPlatformTest, NeededLengthCountsASurrogatePairAsTwoUnits) {
    ASSERT_EQ(ImportText(*manager_, "{\"s\":\"\xF0\x9F\x98\x80\",\"e\":\"\\ud83d\\ude00\"}"),
              ZELT_SUCCESS);
    for (const wchar_t* name : {L"s", L"e"}) {
        SCOPED_TRACE(Narrow(name));
        std::vector<wchar_t> buffer(5, L'#');
        int length = 3;
        // Two units, the terminator and the one extra unit.
        EXPECT_EQ(manager_->GetStringAttribute(nullptr, name, buffer.data(), &length),
                  ZELT_BUFFER_TOO_SMALL);
        EXPECT_EQ(length, 4);
        EXPECT_EQ(buffer[0], L'#');
        EXPECT_EQ(manager_->GetStringAttribute(nullptr, name, buffer.data(), &length),
                  ZELT_SUCCESS);
        EXPECT_EQ(length, 4);
        EXPECT_EQ(std::wstring(buffer.data(), 4), std::wstring(L"\xD83D\xDE00\0#", 4));
    }
}

TEST_F(WindowsPlatformTest, SurrogatePairsBecomeFourByteUtf8) {
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"\xD83D\xDE00", L"a\xD83D\xDD12"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager_), "{ \"\xF0\x9F\x98\x80\": \"a\xF0\x9F\x94\x92\" }");
    EXPECT_EQ(ReadString(*manager_, nullptr, L"\U0001F600").text, L"a\U0001F512");
}

TEST_F(WindowsPlatformTest, LoneSurrogatesBecomeReplacementCharacter) {
    // A high surrogate without its low half, a low one without its high half,
    // and a pair in the wrong order.
    const std::wstring value =
        L"a\xD800"
        L"b\xDC00"
        L"c\xDE00\xD83D";
    ASSERT_EQ(manager_->SetStringAttribute(root_, L"s", value.c_str()), ZELT_SUCCESS);
    ASSERT_NE(manager_->AddElement(root_, L"\xDBFF", ZELT_ADD_OBJECT), nullptr);
    const std::string r = kReplacementUtf8;
    EXPECT_EQ(SavedText(*manager_),
              "{ \"s\": \"a" + r + "b" + r + "c" + r + r + "\", \"" + r + "\": { } }");
    EXPECT_EQ(ReadString(*manager_, nullptr, L"s").text, L"a\uFFFDb\uFFFDc\uFFFD\uFFFD");
}

// ---- Files

TEST_F(WindowsPlatformTest, ProbeRefusesAFileHeldOpenByAnotherHandle) {
    const std::string path = dir_.File("held.json");
    WriteFileBytes(path, "{\"new\":2}");
    const std::wstring widePath = Folder() + L"\\held.json";
    // The other handle shares everything; the probe's share mode 0 still
    // cannot be granted while it is open.
    const HANDLE other = CreateFileW(widePath.c_str(), GENERIC_READ,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(manager_->ImportFromJSONFile(widePath.c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(CapturedLogs(), std::vector<LogRecord>{kOpenFailedRecord});
    EXPECT_EQ(SavedText(*manager_), "{ }");
    CloseHandle(other);

    ClearCapturedLogs();
    EXPECT_EQ(manager_->ImportFromJSONFile(widePath.c_str()), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager_), "{ \"new\": 2 }");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(WindowsPlatformTest, PathBeyondAsciiImportsAndSaves) {
    const std::wstring name =
        L"\u00E9t\u00E9 \u6771\u4EAC \u043A\u043E\u043D\u0444\u0438\u0433 "
        L"\U0001F600";
    const std::wstring input = Folder() + L"\\" + name + L".json";
    const std::wstring output = Folder() + L"\\" + name + L" saved.json";
    WriteFileBytes(std::filesystem::path(input).u8string(), "{\"k\":\"\xC3\xA9\"}");

    ASSERT_EQ(manager_->ImportFromJSONFile(input.c_str()), ZELT_SUCCESS);
    ASSERT_EQ(manager_->SaveToJSONFile(output.c_str()), ZELT_SUCCESS);
    EXPECT_NE(GetFileAttributesW(output.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(ReadFileBytes(std::filesystem::path(output).u8string()), "{ \"k\": \"\xC3\xA9\" }");
    EXPECT_TRUE(CapturedLogs().empty());
}

// ---- The library module

TEST_F(WindowsPlatformTest, LogCallsGoToPLXRDll) {
    const HMODULE logging = GetModuleHandleW(L"PLXR.dll");
    ASSERT_NE(logging, nullptr);
    EXPECT_NE(GetProcAddress(logging, "PLXR_PrintMessage"), nullptr);
    EXPECT_EQ(manager_->ImportFromJSONFile(nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(CapturedLogs(),
              (std::vector<LogRecord>{{L"JSONManager", L"CJSONManager::ImportFromJSONFile", 75, 3,
                                       L"File path is NULL."}}));
}

TEST_F(WindowsPlatformTest, LibraryCarriesItsVersion) {
    const HMODULE library = GetModuleHandleW(L"zelt.dll");
    ASSERT_NE(library, nullptr);
    wchar_t path[MAX_PATH];
    ASSERT_GT(GetModuleFileNameW(library, path, MAX_PATH), 0u);
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(path, &ignored);
    ASSERT_GT(size, 0u);
    std::vector<char> data(size);
    ASSERT_TRUE(GetFileVersionInfoW(path, 0, size, data.data()));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&info), &length));
    EXPECT_EQ(info->dwFileVersionMS,
              static_cast<DWORD>(ZELT_VERSION_MAJOR << 16 | ZELT_VERSION_MINOR));
    EXPECT_EQ(info->dwFileVersionLS, static_cast<DWORD>(ZELT_VERSION_PATCH << 16));
    wchar_t* original = nullptr;
    ASSERT_TRUE(VerQueryValueW(data.data(), L"\\StringFileInfo\\040904b0\\OriginalFilename",
                               reinterpret_cast<void**>(&original), &length));
    EXPECT_EQ(std::wstring(original), L"zelt.dll");
}

}  // namespace

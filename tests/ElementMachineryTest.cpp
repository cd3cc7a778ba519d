// Tests of the machinery that every element shares: the two-step string read,
// the order and type codes of attribute writes, and message delivery. They
// drive Communication and a list entry through an InterceptingManager.
#include "support/ElementTesting.h"
#include "support/InterceptingManager.h"
#include "support/MessageCapture.h"

#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace VextorJSConfig;

namespace {

using CommunicationPtr = std::unique_ptr<ICommunication>;
using Reply = InterceptingManager::StringReply;

CommunicationPtr NewCommunication() { return CommunicationPtr(Communication_CreateNewInstance()); }

// A document whose Communication has every member; the string reads are then
// answered by the script where one is given.
const char* const kDocument =
    "{ \"AutoUpgradeQueryInterval\": 1, \"DispServerHostname\": \"disp\", "
    "\"LogServerHostname\": \"log\", \"EventLogUploadURL\": \"events\", \"AutoupgradeURI\": "
    "\"upgrade\", \"LogUploadInterval\": 5, \"ManagementQueryInterval\": 6, \"EnablePII\": 1 }";

const wchar_t* const kDispMissing =
    L"JSONManager: read required String Attribute failed. element:Communication, "
    L"attr:DispServerHostname";

// Reads a Communication from the document root with the given answers for
// DispServerHostname (the first string read).
struct ScriptedRead {
    explicit ScriptedRead(std::vector<Reply> replies)
        : mgr(ManagerWithText(kDocument)), element(NewCommunication()) {
        for (const Reply& reply : replies) mgr.stringReplies.push_back(reply);
        result = element->ReadFromJSONMgr(&mgr, mgr.GetRootElement());
    }
    InterceptingManager mgr;
    CommunicationPtr element;
    int result;
};

}  // namespace

TEST(ElementMachineryTest, TheFirstReadOffersABufferOf1024) {
    MessageCapture capture;
    ScriptedRead read({{ZELT_SUCCESS, 6, L"host"}});
    EXPECT_EQ(read.result, ZELT_SUCCESS);
    EXPECT_EQ(*read.element->GetDispServerHostname(), L"host");
    ASSERT_FALSE(read.mgr.stringLengthsIn.empty());
    EXPECT_EQ(read.mgr.stringLengthsIn[0], 1024);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(ElementMachineryTest, ANeededLengthAbove1024TakesASecondBufferOfThatLength) {
    for (int needed : {1025, 1026, 5000}) {
        SCOPED_TRACE(needed);
        const std::wstring text = LongText(static_cast<std::size_t>(needed - 2));
        ScriptedRead read({{ZELT_BUFFER_TOO_SMALL, needed, L""}, {ZELT_SUCCESS, needed, text}});
        EXPECT_EQ(read.result, ZELT_SUCCESS);
        EXPECT_EQ(*read.element->GetDispServerHostname(), text);
        // Both steps for DispServerHostname, then one each for the three
        // optional strings, answered by the document.
        EXPECT_EQ(read.mgr.stringLengthsIn, (std::vector<int>{1024, needed, 1024, 1024, 1024}));
    }
}

TEST(ElementMachineryTest, TooSmallWithoutALargerNeedIsAMissingString) {
    for (int needed : {1024, 5, 0, -1}) {
        SCOPED_TRACE(needed);
        MessageCapture capture;
        ScriptedRead read({{ZELT_BUFFER_TOO_SMALL, needed, L""}});
        EXPECT_EQ(read.result, ZELT_FAILED);
        EXPECT_EQ(read.mgr.stringLengthsIn, std::vector<int>{1024});
        EXPECT_EQ(capture.Messages(), Messages{kDispMissing});
        EXPECT_EQ(read.element->GetLogUploadInterval(), 0u);
    }
}

TEST(ElementMachineryTest, AnyOtherFirstResultIsAMissingString) {
    for (int result : {ZELT_NOT_PRESENT, ZELT_FAILED, ZELT_BAD_ARGUMENT, 0}) {
        SCOPED_TRACE(result);
        MessageCapture capture;
        ScriptedRead read({{result, 5000, L""}});
        EXPECT_EQ(read.result, ZELT_FAILED);
        EXPECT_EQ(read.mgr.stringLengthsIn, std::vector<int>{1024});
        EXPECT_EQ(capture.Messages(), Messages{kDispMissing});
    }
}

TEST(ElementMachineryTest, AFailingSecondStepLeavesARequiredStringEmptyAndReadingGoesOn) {
    for (int second : {ZELT_FAILED, ZELT_BUFFER_TOO_SMALL, ZELT_NOT_PRESENT}) {
        SCOPED_TRACE(second);
        MessageCapture capture;
        ScriptedRead read({{ZELT_BUFFER_TOO_SMALL, 5000, L""}, {second, 6000, L"ignored"}});
        EXPECT_EQ(read.result, ZELT_SUCCESS);
        EXPECT_EQ(*read.element->GetDispServerHostname(), L"");
        EXPECT_EQ(read.element->GetLogUploadInterval(), 5u);
        EXPECT_EQ(read.element->GetManagementQueryInterval(), 6u);
        std::wstring text;
        EXPECT_EQ(read.element->GetAutoupgradeURI(&text), ZELT_SUCCESS);
        EXPECT_EQ(text, L"upgrade");
        EXPECT_TRUE(capture.Messages().empty());
    }
}

TEST(ElementMachineryTest, OptionalStringsStayAbsentOnEveryFailureSilently) {
    struct Case {
        std::vector<Reply> logServerReplies;
    };
    const Case cases[] = {
        {{{ZELT_BUFFER_TOO_SMALL, 1024, L""}}},
        {{{ZELT_BUFFER_TOO_SMALL, 5000, L""}, {ZELT_FAILED, 5000, L""}}},
        {{{ZELT_NOT_PRESENT, 1024, L""}}},
        {{{ZELT_BAD_ARGUMENT, 0, L""}}},
    };
    for (const Case& c : cases) {
        MessageCapture capture;
        std::vector<Reply> replies{{ZELT_SUCCESS, 6, L"disp"}};
        replies.insert(replies.end(), c.logServerReplies.begin(), c.logServerReplies.end());
        ScriptedRead read(replies);
        EXPECT_EQ(read.result, ZELT_SUCCESS);
        std::wstring text = L"untouched";
        EXPECT_EQ(read.element->GetLogServerHostname(&text), ZELT_NOT_PRESENT);
        EXPECT_EQ(text, L"untouched");
        EXPECT_EQ(read.element->GetEventLogUploadURL(&text), ZELT_SUCCESS);
        EXPECT_EQ(text, L"events");
        EXPECT_TRUE(capture.Messages().empty());
    }
}

TEST(ElementMachineryTest, AnOptionalStringFromTheSecondStepIsPresent) {
    const std::wstring longText = LongText(4000);
    ScriptedRead read({{ZELT_SUCCESS, 6, L"disp"},
                       {ZELT_BUFFER_TOO_SMALL, 4002, L""},
                       {ZELT_SUCCESS, 4002, longText}});
    EXPECT_EQ(read.result, ZELT_SUCCESS);
    std::wstring text;
    EXPECT_EQ(read.element->GetLogServerHostname(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, longText);
}

TEST(ElementMachineryTest, TheRealManagersLengthsDecideTheSteps) {
    // The manager reports characters + terminator + 1: 1022 characters fit
    // the first buffer, 1023 take the second.
    struct Case {
        std::size_t characters;
        std::vector<int> lengths;
    };
    const Case cases[] = {
        {1022, {1024}},       {1023, {1024, 1025}}, {1024, {1024, 1026}},
        {1025, {1024, 1027}}, {3000, {1024, 3002}}, {5000, {1024, 5002}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.characters);
        const std::wstring value = LongText(c.characters);
        InterceptingManager mgr(ManagerWithText("\"" + Narrow(value) + "\""));
        std::unique_ptr<IIPListArray> entry(IPListArray_CreateNewInstance());
        ASSERT_EQ(entry->ReadFromJSONMgr(&mgr, mgr.GetRootElement()), ZELT_SUCCESS);
        EXPECT_EQ(*entry->GetStringValue(), value);
        EXPECT_EQ(mgr.stringLengthsIn, c.lengths);
    }
}

TEST(ElementMachineryTest, AttributesAreWrittenWithTheirTypeCodesAndAbsentOnesSkipped) {
    CommunicationPtr element = NewCommunication();
    InterceptingManager mgr(ManagerWithEmptyDocument());
    ASSERT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_SUCCESS);
    EXPECT_EQ(mgr.calls, (std::vector<std::wstring>{
                             AddElementCall(L"Communication", ZELT_ADD_OBJECT),
                             AddElementCall(L"DispServerHostname", ZELT_ADD_PARENT_FOR_STRING),
                             L"SetStringAttribute DispServerHostname",
                             AddElementCall(L"LogUploadInterval", ZELT_ADD_PARENT_FOR_DWORD),
                             L"SetDWORDAttribute LogUploadInterval",
                             AddElementCall(L"ManagementQueryInterval", ZELT_ADD_PARENT_FOR_DWORD),
                             L"SetDWORDAttribute ManagementQueryInterval"}));
    JSONNode* node = mgr.GetElement(nullptr, L"Communication");
    EXPECT_EQ(mgr.attributeNodes, (std::vector<JSONNode*>{node, node, node}));
}

TEST(ElementMachineryTest, AnAttributeNodeThatIsNotGivenReachesTheSetterAsNull) {
    MessageCapture capture;
    CommunicationPtr element = NewCommunication();
    InterceptingManager mgr(ManagerWithEmptyDocument());
    mgr.refusedElements.insert(L"LogUploadInterval");
    EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(mgr.calls.back(), L"SetDWORDAttribute LogUploadInterval");
    EXPECT_EQ(mgr.attributeNodes.back(), nullptr);
    EXPECT_EQ(capture.Messages(), Messages{L"JSONManager: write required DWORD Attribute failed. "
                                           L"element:Communication, attr:LogUploadInterval"});
}

TEST(ElementMachineryTest, AnElementNodeThatIsNotCreatedStopsTheWriteAtOnce) {
    MessageCapture capture;
    CommunicationPtr element = NewCommunication();
    InterceptingManager mgr(ManagerWithEmptyDocument());
    mgr.refusedElements.insert(L"Communication");
    EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(mgr.calls,
              std::vector<std::wstring>{AddElementCall(L"Communication", ZELT_ADD_OBJECT)});
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: required element pointer is NULL. element: Communication"});
}

TEST(ElementMachineryTest, ReadingStopsAtTheFirstFailingMember) {
    MessageCapture capture;
    InterceptingManager mgr(ManagerWithText("{ \"DispServerHostname\": \"d\", \"EnablePII\": 1 }"));
    CommunicationPtr element = NewCommunication();
    EXPECT_EQ(element->ReadFromJSONMgr(&mgr, mgr.GetRootElement()), ZELT_FAILED);
    EXPECT_EQ(
        mgr.calls,
        (std::vector<std::wstring>{
            L"GetDWORDAttribute AutoUpgradeQueryInterval", L"GetStringAttribute DispServerHostname",
            L"GetStringAttribute LogServerHostname", L"GetStringAttribute EventLogUploadURL",
            L"GetStringAttribute AutoupgradeURI", L"GetDWORDAttribute LogUploadInterval"}));
    EXPECT_EQ(*element->GetDispServerHostname(), L"");
}

TEST(ElementMachineryTest, WithoutACallbackFailuresAreOnlyReturned) {
    MessageCapture capture;
    SetZeltDebugDumpCallBack(nullptr);
    CommunicationPtr element = NewCommunication();
    EXPECT_EQ(element->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(element->SetDispServerHostname(nullptr), ZELT_FAILED);
    EXPECT_TRUE(capture.Messages().empty());

    // Destroying any manager switches the callback off as well.
    capture.Reinstall();
    zeltDestroyJSONManager(nullptr);
    EXPECT_EQ(element->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_TRUE(capture.Messages().empty());

    capture.Reinstall();
    EXPECT_EQ(element->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
}

TEST(ElementMachineryTest, EveryFactoryGivesItsElementType) {
    auto type = [](auto* element) {
        const DWORD value = element->GetElementType();
        delete element;
        return value;
    };
    EXPECT_EQ(type(Communication_CreateNewInstance()), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(type(EnforceList_CreateNewInstance()), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(type(WhiteList_CreateNewInstance()), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(type(ClientRequestHeaders_CreateNewInstance()), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(type(IPList_CreateNewInstance()), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(type(VPNDescList_CreateNewInstance()), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(type(ClientRequestHeadersArray_CreateNewInstance()), ELEMENT_TYPE_LIST_ENTRY);
    EXPECT_EQ(type(IPListArray_CreateNewInstance()), ELEMENT_TYPE_LIST_ENTRY);
    EXPECT_EQ(type(VPNDescListArray_CreateNewInstance()), ELEMENT_TYPE_LIST_ENTRY);
}

// ThreadStressTest.cpp: separate managers with their element trees, used in
// separate threads at once. Each of 8 threads runs 1,000 cycles on its own
// manager, tree and file: it imports the full sample from text, reads it,
// changes the profile name, writes and saves it, imports the saved file and
// reads it again; every tenth cycle it also reads an invalid document, whose
// messages all threads deliver through one debug dump callback. Each thread
// must get exactly the messages of its own failed reads, in order. Built
// with ThreadSanitizer (the tsan preset), the run must report no data race.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support/ElementTesting.h"
#include "support/ManagerTesting.h"
#include "support/TempFile.h"

using namespace VextorJSConfig;

namespace {

constexpr int kThreads = 8;
constexpr int kCycles = 1000;
constexpr int kCyclesPerInvalidRead = 10;

// Messages are kept by the thread that delivers them, and counted for all.
// Each thread points to its own list; a plain pointer, since mingw-w64's
// thread-local objects with destructors crash when their thread ends.
thread_local std::vector<std::wstring>* messagesOfThisThread = nullptr;
std::atomic<std::size_t> deliveredInAll{0};

void DeliverMessage(const wchar_t* message) {
    messagesOfThisThread->push_back(message);
    deliveredInAll.fetch_add(1, std::memory_order_relaxed);
}

struct Documents {
    std::string full = SampleText("full.json");
    std::string invalid = SampleText("invalid-missing-sslfilter.json");
};

// What one thread saw; the main thread checks it after all have joined.
struct ThreadOutcome {
    int cyclesDone = 0;
    std::string firstFailure;
    std::vector<std::wstring> messages;
};

bool Import(IJSONManager& manager, const std::string& text) {
    return ImportText(manager, text) == ZELT_SUCCESS;
}

// One cycle; returns what went wrong, or nothing.
std::string RunCycle(IJSONManager& manager, IVextorJSConfig& tree, const std::string& path,
                     const Documents& documents, int thread, int cycle) {
    if (!Import(manager, documents.full)) return "string import";
    if (tree.ReadFromJSONMgr(&manager, manager.GetRootElement()) != ZELT_SUCCESS) return "read";
    std::wstring profile =
        L"thread " + std::to_wstring(thread) + L" cycle " + std::to_wstring(cycle);
    tree.SetProfileName(&profile);
    if (tree.WriteToJSONMgr(&manager, nullptr, 1) != ZELT_SUCCESS) return "write";
    if (manager.SaveToJSONFile(WidePath(path).c_str()) != ZELT_SUCCESS) return "save";
    if (manager.ImportFromJSONFile(WidePath(path).c_str()) != ZELT_SUCCESS) return "file import";
    if (tree.ReadFromJSONMgr(&manager, manager.GetRootElement()) != ZELT_SUCCESS)
        return "read of the saved file";
    if (*tree.GetProfileName() != profile) return "profile name after the round trip";
    if (cycle % kCyclesPerInvalidRead != kCyclesPerInvalidRead - 1) return {};
    if (!Import(manager, documents.invalid)) return "string import of the invalid document";
    if (tree.ReadFromJSONMgr(&manager, manager.GetRootElement()) != ZELT_FAILED)
        return "read of the invalid document";
    return {};
}

// The manager is deleted through its destructor, not destroyed through the
// export, which would switch the shared callback off for every thread.
void RunThread(const Documents& documents, const std::string& path, int thread,
               ThreadOutcome& outcome) {
    messagesOfThisThread = &outcome.messages;
    ManagerPtr manager = NewManager();
    std::unique_ptr<IVextorJSConfig> tree(VextorJSConfig_CreateNewInstance());
    for (int cycle = 0; cycle < kCycles && outcome.firstFailure.empty(); ++cycle) {
        const std::string failure = RunCycle(*manager, *tree, path, documents, thread, cycle);
        if (!failure.empty())
            outcome.firstFailure = "cycle " + std::to_string(cycle) + ": " + failure;
        else
            ++outcome.cyclesDone;
    }
}

// The messages of one failed read of the invalid document, on this thread.
std::vector<std::wstring> MessagesOfOneInvalidRead(const Documents& documents) {
    std::vector<std::wstring> messages;
    messagesOfThisThread = &messages;
    ManagerPtr manager = NewManager();
    std::unique_ptr<IVextorJSConfig> tree(VextorJSConfig_CreateNewInstance());
    EXPECT_TRUE(Import(*manager, documents.invalid));
    EXPECT_EQ(tree->ReadFromJSONMgr(manager.get(), manager->GetRootElement()), ZELT_FAILED);
    messagesOfThisThread = nullptr;
    deliveredInAll = 0;
    return messages;
}

TEST(ThreadStressTest, SeparateManagersAndTreesRunInThreadsAtOnce) {
    const Documents documents;
    TempDir dir;
    // The callback is process-wide: set once, before the threads start.
    SetZeltDebugDumpCallBack(&DeliverMessage);
    const std::vector<std::wstring> perInvalidRead = MessagesOfOneInvalidRead(documents);
    ASSERT_EQ(perInvalidRead.size(), 3u);

    std::vector<ThreadOutcome> outcomes(kThreads);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back(RunThread, std::cref(documents),
                             dir.File("thread-" + std::to_string(thread) + ".json"), thread,
                             std::ref(outcomes[thread]));
    for (std::thread& thread : threads) thread.join();
    SetZeltDebugDumpCallBack(nullptr);

    std::vector<std::wstring> expected;
    for (int read = 0; read < kCycles / kCyclesPerInvalidRead; ++read)
        expected.insert(expected.end(), perInvalidRead.begin(), perInvalidRead.end());
    for (int thread = 0; thread < kThreads; ++thread) {
        SCOPED_TRACE("thread " + std::to_string(thread));
        EXPECT_EQ(outcomes[thread].firstFailure, "");
        EXPECT_EQ(outcomes[thread].cyclesDone, kCycles);
        EXPECT_EQ(outcomes[thread].messages, expected);
    }
    EXPECT_EQ(deliveredInAll.load(), std::size_t{kThreads} * expected.size());
}

}  // namespace

// Costs of the manager's operations as the document grows. Each should grow
// linearly with its input: compare the per-item figures across sizes.
#include <zelt/zelt.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

namespace {

// A document with one array of count strings and count integer members.
std::string MakeDocument(int count) {
    std::string text = "{ \"List\": [";
    for (int i = 0; i < count; ++i)
        text += (i ? ", \"" : " \"") + std::to_string(i) + " \\/ entry\"";
    text += " ]";
    for (int i = 0; i < count; ++i)
        text += ", \"Member" + std::to_string(i) + "\": " + std::to_string(i);
    return text + " }";
}

void ImportFromString(benchmark::State& state) {
    std::string text = MakeDocument(static_cast<int>(state.range(0)));
    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            manager->ImportFromJSONString(text.data(), static_cast<int>(text.size())));
    zeltDestroyJSONManager(manager);
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(ImportFromString)->RangeMultiplier(8)->Range(64, 32768);

void SaveToFile(benchmark::State& state) {
    std::string text = MakeDocument(static_cast<int>(state.range(0)));
    IJSONManager* manager = zeltCreateJSONManager(text.data(), static_cast<int>(text.size()));
    const std::string path = "/tmp/zelt-bench-save.json";
    const std::wstring widePath(path.begin(), path.end());
    for (auto _ : state) benchmark::DoNotOptimize(manager->SaveToJSONFile(widePath.c_str()));
    zeltDestroyJSONManager(manager);
    std::remove(path.c_str());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SaveToFile)->RangeMultiplier(8)->Range(64, 32768);

// Reads every item of the array and every member by name.
void ReadEveryValue(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    std::string text = MakeDocument(count);
    IJSONManager* manager = zeltCreateJSONManager(text.data(), static_cast<int>(text.size()));
    JSONNode* list = manager->GetElement(nullptr, L"List");
    for (auto _ : state) {
        for (int i = 0; i < count; ++i) {
            wchar_t buffer[64];
            int length = 64;
            benchmark::DoNotOptimize(
                manager->GetArrayStringAttribute(list, L"List", i, buffer, &length));
            DWORD value = 0;
            const std::wstring name = L"Member" + std::to_wstring(i);
            benchmark::DoNotOptimize(manager->GetDWORDAttribute(nullptr, name.c_str(), &value));
        }
    }
    zeltDestroyJSONManager(manager);
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(ReadEveryValue)->RangeMultiplier(8)->Range(64, 32768);

// Replacing a member moves it to the end: each replacement stays O(1).
void ReplaceMembers(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    manager->CreateNewDocument();
    JSONNode* root = manager->GetRootElement();
    for (int i = 0; i < count; ++i)
        manager->SetDWORDAttribute(root, (L"Member" + std::to_wstring(i)).c_str(), 0);
    for (auto _ : state)
        for (int i = 0; i < count; ++i)
            manager->SetDWORDAttribute(root, (L"Member" + std::to_wstring(i)).c_str(), 1);
    zeltDestroyJSONManager(manager);
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(ReplaceMembers)->RangeMultiplier(8)->Range(64, 32768);

// A long string through the caller-buffer protocol: measure, then deliver.
void ReadLongString(benchmark::State& state) {
    const std::size_t length = static_cast<std::size_t>(state.range(0));
    std::string text = "{ \"Text\": \"" + std::string(length, 'x') + "\" }";
    IJSONManager* manager = zeltCreateJSONManager(text.data(), static_cast<int>(text.size()));
    std::wstring buffer(length + 2, L'\0');
    for (auto _ : state) {
        int size = static_cast<int>(buffer.size());
        benchmark::DoNotOptimize(
            manager->GetStringAttribute(nullptr, L"Text", buffer.data(), &size));
    }
    zeltDestroyJSONManager(manager);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * length));
}
BENCHMARK(ReadLongString)->RangeMultiplier(8)->Range(1024, 1 << 20);

}  // namespace
